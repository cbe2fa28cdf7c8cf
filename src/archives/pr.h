// Progressive counters of a company's year. Primary key: a short name ("mc", "conto", "fv1").
#pragma once

#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct pr {
  std::int32_t valore = 0;  // the last number drawn
  std::string testo;        // of the printed registers: month or date they reach to
};

}  // namespace rec

template <>
struct archives::Layout<rec::pr> {
  static constexpr std::string_view prefix = "pr";
  static constexpr int code = 4;
  static constexpr std::string_view format = "&,$";
};
