// Year-end state of a company's year: one record, key "1". A flag that holds "n" reads as done.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct ct {
  std::string cheflag;     // closure of the income accounts
  std::string chpflag;     // closure of the balance accounts
  std::string bapflag;     // opening entry
  std::string trapaflag;   // open items carried over
  std::string tradocflag;  // suspended documents carried over
  std::string bapdata;     // date of the opening entry
};

}  // namespace rec

template <>
struct archives::Layout<rec::ct> {
  static constexpr std::string_view prefix = "ct";
  static constexpr int code = 2;
  static constexpr std::string_view format = "$,$,$,$,$,$";
};
