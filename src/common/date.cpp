#include "common/date.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

#include "common/text.h"

namespace common {
namespace {

struct Parts {
  int day, month, year;
};

int digits(std::string_view text) {
  int value = 0;
  for (const char c : text) value = value * 10 + (c - '0');
  return value;
}

std::optional<Parts> partsOf(std::string_view date) {
  if (date.size() != 10) return std::nullopt;
  for (std::size_t i = 0; i < date.size(); ++i) {
    const bool slash = i == 2 || i == 5;
    if (slash ? date[i] != '/' : date[i] < '0' || date[i] > '9') return std::nullopt;
  }
  return Parts{digits(date.substr(0, 2)), digits(date.substr(3, 2)), digits(date.substr(6))};
}

bool isLeap(int year) { return year >= 2000 && year <= 2016 && year % 4 == 0; }

int daysOf(int month, int year) {
  constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return days[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeap(year));
}

std::optional<std::chrono::sys_days> calendarDay(std::string_view date) {
  const auto parts = partsOf(date);
  if (!parts) return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year{parts->year},
                                        std::chrono::month{static_cast<unsigned>(parts->month)},
                                        std::chrono::day{static_cast<unsigned>(parts->day)}};
  if (!day.ok()) return std::nullopt;
  return std::chrono::sys_days{day};
}

// `count` characters of `text` from `from` on, as far as there are any.
std::string_view middle(std::string_view text, std::size_t from, std::size_t count) {
  return from < text.size() ? text.substr(from, count) : std::string_view();
}

}  // namespace

std::string DateToKey(std::string_view date) {
  return right(date, 4).append(middle(date, 3, 2)).append(middle(date, 0, 2));
}

std::string KeyToDate(std::string_view key) {
  return right(key, 2).append(middle(key, 4, 2)).append(middle(key, 0, 4));
}

std::string SlashDate(std::string_view date) {
  if (date.empty()) return {};
  return std::string(middle(date, 0, 2))
      .append("/")
      .append(middle(date, 2, 2))
      .append("/")
      .append(middle(date, 4, 4));
}

std::string SlashDateShort(std::string_view date) { return SlashDate(date); }

void clearBlankDate(std::string& date) {
  if (numberValue(date) == 0) date.clear();
}

bool dayExists(std::string_view date) {
  const auto parts = partsOf(date);
  if (!parts || parts->month < 1 || parts->month > 12) return false;
  return parts->day >= 1 && parts->day <= daysOf(parts->month, parts->year);
}

bool isDateOf(std::string_view date, std::string_view year) {
  return dayExists(date) && date.substr(6) == year;
}

bool isDate(std::string_view date) {
  if (!dayExists(date)) return false;
  const int year = digits(date.substr(6));
  return year >= 1900 && year <= 2099;
}

int daysBetween(std::string_view from, std::string_view to) {
  const auto first = calendarDay(from), last = calendarDay(to);
  return first && last ? static_cast<int>((*last - *first).count()) : 0;
}

}  // namespace common
