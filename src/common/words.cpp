#include "common/words.h"

#include <array>
#include <cmath>
#include <string_view>

#include "common/amount.h"
#include "common/mask.h"

namespace common {
namespace {

// The words of 1 to 99, tens joined with units as they are spoken (ventuno, ventotto).
std::string wordOf(int number) {
  constexpr std::array<std::string_view, 20> small{
      "",       "un",          "due",      "tre",       "quattro", "cinque",  "sei",         "sette",
      "otto",   "nove",        "dieci",    "undici",    "dodici",  "tredici", "quattordivi", "quindici",
      "sedici", "diciassette", "diciotto", "diciannove"};
  constexpr std::array<std::string_view, 10> tens{"",          "",         "venti",    "trenta",  "quaranta",
                                                  "cinquanta", "sessanta", "settanta", "ottanta", "novanta"};
  if (number < 20) return std::string(small[static_cast<std::size_t>(number)]);
  std::string word(tens[static_cast<std::size_t>(number / 10)]);
  const int unit = number % 10;
  if (unit == 1 || unit == 8) word.pop_back();
  return word.append(unit == 1 ? "uno" : small[static_cast<std::size_t>(unit)]);
}

std::string hundredOf(int number) {
  const int hundred = number / 100;
  if (hundred == 0) return {};
  return (hundred == 1 ? "" : wordOf(hundred)) + "cento";
}

std::string billions(int number) {
  if (number == 1) return "unmiliardo";
  return number > 1 ? wordOf(number) + "miliardi" : "";
}

std::string millions(int number) {
  if (number == 0) return {};
  return hundredOf(number) + wordOf(number % 100) + (number == 1 ? "milione" : "milioni");
}

std::string thousands(int number) {
  if (number == 0) return {};
  if (number == 1) return "mille";
  const int rest = number % 100;
  return hundredOf(number) + (rest > 1 ? wordOf(rest) : "") + "mila";
}

std::string units(int number) {
  const int rest = number % 100;
  return hundredOf(number) + (rest == 1 ? "uno" : wordOf(rest));
}

}  // namespace

std::string AmountInWords(double amount) {
  if (!(amount >= 0 && amount < 1e11)) return {};
  const std::string digits = format("00000000000", std::floor(snapped(amount)));
  const std::string decimals = format("00000000000.00", amount);
  const auto part = [&](std::size_t from, std::size_t count) {
    return std::stoi(digits.substr(from, count));
  };
  return billions(part(0, 2)) + millions(part(2, 3)) + thousands(part(5, 3)) + units(part(8, 3)) + "," +
         decimals.substr(decimals.size() - 2);
}

}  // namespace common
