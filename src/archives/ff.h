// Most used sottoconti. Primary key: the number of the sottoconto.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct ff {
  std::string codice;
  std::string riservato;
  double utilizzi = 0;  // how often the list was used to pick it
};

}  // namespace rec

template <>
struct archives::Layout<rec::ff> {
  static constexpr std::string_view prefix = "ff";
  static constexpr int code = 33;
  static constexpr std::string_view format = "$,$,#";
};
