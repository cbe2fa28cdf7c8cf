#include "common/clock.h"

#include <array>
#include <ctime>
#include <utility>

namespace common {
namespace {

std::string machineTime(const char* pattern) {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), pattern, &parts)};
}

}  // namespace

Clock::Clock(std::optional<std::string> today, std::optional<std::string> now)
    : today_(std::move(today)), now_(std::move(now)) {}

std::string Clock::today() const { return today_ ? *today_ : machineTime("%d/%m/%Y"); }

std::string Clock::now() const { return now_ ? *now_ + ":00" : machineTime("%H:%M:%S"); }

}  // namespace common
