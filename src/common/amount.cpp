#include "common/amount.h"

#include <algorithm>
#include <cmath>

#include "common/mask.h"
#include "common/text.h"

namespace common {
namespace {

constexpr double kTwipsPerCm = 567;

// From here on a hundredfold has no fraction left that a floor could take away.
constexpr double kNoCents = 9007199254740992.0 / 100;

}  // namespace

double snapped(double product) {
  double unit = 1e8;
  for (double limit = 1e7; std::fabs(product) >= limit; limit *= 10) {
    unit /= 10;
    if (unit < 10) return product;
  }
  return std::round(product * unit) / unit;
}

double roundBalance(double amount) {
  if (std::fabs(amount) >= kNoCents) return amount;
  return std::floor(snapped(amount * 100) + 0.5) / 100;
}

double cutVat(double amount) {
  if (std::fabs(amount) >= kNoCents) return amount;
  return std::floor(snapped((amount + 0.005) * 100)) / 100;
}

double vatOf(double taxable, double ratePercent) { return cutVat(snapped(taxable * ratePercent / 100)); }

double netOf(double gross, double ratePercent) { return cutVat(snapped(gross / (ratePercent / 100 + 1))); }

double LireToEuro(double lire, double rate) {
  if (rate == 0) rate = 1;
  const double thousandths = std::trunc(snapped(std::fabs(lire) / rate * 1000));
  double cents = std::trunc(thousandths / 10);
  if (std::fmod(thousandths, 10) >= 5) ++cents;
  return lire < 0 ? -cents / 100 : cents / 100;
}

double ParseDecimal(std::string& text) {
  const auto comma = text.find(',');
  if (comma != std::string::npos) text[comma] = '.';
  return numberValue(text);
}

long CmToTwips(std::string text) {
  const double twips = snapped(ParseDecimal(text) * kTwipsPerCm);
  return std::lrint(std::clamp(twips, -2147483648.0, 2147483647.0));
}

std::string TwipsToCm(double twips) { return format("###0.00", (twips + 0.0005) / kTwipsPerCm); }

double toNumber(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '.');
  return ParseDecimal(plain);
}

std::string toText(double value, int decimals) {
  std::string picture = "#,##0";
  if (decimals > 0) picture.append(1, '.').append(static_cast<std::size_t>(decimals), '0');
  return format(picture, value);
}

}  // namespace common
