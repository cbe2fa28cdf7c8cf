#include "common/vat_number.h"

#include <algorithm>

namespace common {

bool vatNumberIsRight(std::string_view number) {
  if (number.empty()) return true;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (number.size() != 11 || !std::all_of(number.begin(), number.end(), isDigit)) return false;
  if (number == "00000000000") return false;
  int sum = 0;
  for (std::size_t i = 0; i < 10; ++i) {
    const int digit = number[i] - '0';
    const int weighted = i % 2 == 0 ? digit : digit * 2;
    sum += weighted / 10 + weighted % 10;
  }
  return number[10] - '0' == (10 - sum % 10) % 10;
}

}  // namespace common
