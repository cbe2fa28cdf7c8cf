// Numbers drawn from a seed for the demonstration.
#pragma once

#include <random>
#include <string>

#include "common/text.h"

namespace demo {

// The generator is the same on every machine; the library's distributions are not, hence below().
class Draw {
 public:
  explicit Draw(unsigned seed) : generator_(seed) {}
  int below(int limit) { return static_cast<int>(generator_() % static_cast<unsigned>(limit)); }
  int between(int low, int high) { return low + below(high - low + 1); }
  template <class List>
  const auto& from(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
  }

 private:
  std::mt19937 generator_;
};

// "yyyy" and the key "mmdd" as a date of the screens.
inline std::string dateOf(const std::string& year, const std::string& monthAndDay) {
  return monthAndDay.substr(2) + "/" + monthAndDay.substr(0, 2) + "/" + year;
}

}  // namespace demo
