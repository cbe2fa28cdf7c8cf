#include "common/currency.h"

#include <cmath>

namespace common {
namespace {

constexpr Currency kScale = 10'000;

Currency floored(Currency amount) {
  const Currency rest = amount % kScale;
  return amount - (rest < 0 ? rest + kScale : rest);
}

}  // namespace

Currency toCurrency(double amount) { return std::llrint(amount * static_cast<double>(kScale)); }

double toDouble(Currency amount) { return static_cast<double>(amount) / static_cast<double>(kScale); }

double cutInstalment(double amount, int parts) {
  return toDouble(floored(toCurrency(amount / parts) * 100)) / 100;
}

}  // namespace common
