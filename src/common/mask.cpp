#include "common/mask.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "common/amount.h"
#include "common/text.h"

namespace common {
namespace {

std::size_t countOf(std::string_view text, std::string_view characters) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [&](char c) { return characters.find(c) != std::string_view::npos; }));
}

// The digits of `magnitude`, at least one before its `decimals`, without a point.
std::string digitsOf(double magnitude, std::size_t decimals) {
  const double scaled = snapped(magnitude * std::pow(10, decimals));
  if (scaled < 9e15) return zeroFill(std::llround(scaled), decimals + 1);
  char digits[400];  // the longest double has 309 of them before the point
  const int shown = static_cast<int>(std::min<std::size_t>(decimals, 60));
  const auto end =
      std::to_chars(digits, digits + sizeof digits, magnitude, std::chars_format::fixed, shown).ptr;
  std::string text(digits, end);
  std::erase(text, '.');
  return text.append(decimals - static_cast<std::size_t>(shown), '0');
}

}  // namespace

std::string format(std::string_view picture, double value) {
  if (!std::isfinite(value)) return "?";
  const auto point = std::min(picture.find('.'), picture.size());
  const std::string_view left = picture.substr(0, point), right = picture.substr(point);
  const std::size_t decimals = countOf(right, "#0");
  const auto zero = left.find('0'), lastZero = right.rfind('0');
  const std::size_t atLeast = zero == std::string_view::npos ? 0 : countOf(left.substr(zero), "#0");
  const std::size_t kept =
      lastZero == std::string_view::npos ? 0 : countOf(right.substr(0, lastZero + 1), "#0");

  std::string whole = digitsOf(std::fabs(value), decimals);
  std::string fraction = whole.substr(whole.size() - decimals);
  whole.resize(whole.size() - decimals);
  while (fraction.size() > kept && fraction.back() == '0') fraction.pop_back();
  whole = whole.substr(std::min(whole.find_first_not_of('0'), whole.size()));
  whole = zeroFill(whole, atLeast);

  const bool nonzero = (whole + fraction).find_first_not_of('0') != std::string::npos;
  if (left.find(',') != std::string_view::npos)
    for (auto i = whole.size(); i > 3; i -= 3) whole.insert(i - 3, 1, '.');
  if (!fraction.empty()) whole += ',' + fraction;
  return value < 0 && nonzero ? '-' + whole : whole;
}

}  // namespace common
