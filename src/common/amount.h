// Amounts: every rounding of the system under a name of its own, the conversion from Lire, and numbers
// as Italian text. "Integer part" is always the floor; a computed product is snapped to eight decimals
// before it, so that half cents fall as on paper (10,05 at 10 % is 1,01).
#pragma once

#include <string>
#include <string_view>

namespace common {

// A computed product at its nearest value of eight decimals, or of the fewer ones that a double of its size
// holds for certain (15 digits in all); from 10^14 on it stays as it is.
double snapped(double product);

double roundBalance(double amount);                // floor(x * 100 + 0.5) / 100: balances and differences
double cutVat(double amount);                      // floor((x + 0.005) * 100) / 100: computed VAT
double vatOf(double taxable, double ratePercent);  // cutVat(taxable * rate / 100)
double netOf(double gross, double ratePercent);    // cutVat(gross / (rate / 100 + 1)): gross includes the VAT

// Lire to Euro at `rate` Lire for one Euro (0 reads as 1): half up on the third decimal, what stands
// beyond it is cut; the sign is kept.
double LireToEuro(double lire, double rate);

inline constexpr double kEuroRate = 1936.27;

// The value of a text with a decimal comma: digits up to the first character that cannot belong to a
// number, 0 for a text that does not begin with one. The first comma of the text itself becomes a point.
double ParseDecimal(std::string& text);

long CmToTwips(std::string text);     // 1 cm = 567 twips, a half to the even one; within 32 bits
std::string TwipsToCm(double twips);  // "###0.00"

// The number that an entry field's Italian text stands for ("1.234,50"); 0 when it stands for none.
double toNumber(std::string_view text);

// "1.234,50": Italian separators, rounded half away from zero, -0 shown as 0; "?" for NaN and infinity.
std::string toText(double value, int decimals = 2);

}  // namespace common
