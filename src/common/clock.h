// What day and what time it is for a session; a test or the driver may fix both.
#pragma once

#include <optional>
#include <string>

namespace common {

class Clock {
 public:
  Clock() = default;
  // `today` as dd/mm/yyyy, `now` as HH:MM; what is left out comes from the machine's own clock.
  Clock(std::optional<std::string> today, std::optional<std::string> now);

  std::string today() const;  // dd/mm/yyyy
  std::string now() const;    // HH:MM:SS, with seconds 00 when the time is fixed

 private:
  std::optional<std::string> today_, now_;
};

}  // namespace common
