// VAT codes: 25 slots, shared by all the companies of an installation.
// Primary key: the slot, "0" for the first one, then "01" to "24"; codes are looked up by index 1.
#pragma once

#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct civa {
  std::string codice;             // empty in a free slot
  double aliquota = 0;            // percent; 0 for exempt and out-of-scope codes
  std::int16_t indetraibile = 0;  // 100: cannot be deducted
  std::string descrizione;

  bool operator==(const civa&) const = default;
};

}  // namespace rec

template <>
struct archives::Layout<rec::civa> {
  static constexpr std::string_view prefix = "civa";
  static constexpr int code = 9;
  static constexpr std::string_view format = "x5$,#,%,$";
};
