// Amounts in words, for bank receipts.
#pragma once

#include <string>

namespace common {

// "milleduecentotrentaquattro,50"; the amount is below 100 miliardi and not negative, any other gives an
// empty text. The words are joined without blanks, "quattordivi" is spelled so, 101000 is "centomila" and
// zero gives ",00". The words are those of the whole part, the decimals those of the rounded amount.
std::string AmountInWords(double amount);

}  // namespace common
