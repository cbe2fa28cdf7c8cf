// Rows of the entry screens as they were typed, so that an entry can be opened again.
// Primary key: the `pr` counter "dati", eight digits.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct tt {
  std::string nummov;  // of the journal rows
  std::string voce;
  std::string testo;    // taxable amount, or added description
  std::string codice;   // VAT code, or debit
  std::string importo;  // VAT amount, or credit
};

}  // namespace rec

template <>
struct archives::Layout<rec::tt> {
  static constexpr std::string_view prefix = "tt";
  static constexpr int code = 25;
  static constexpr std::string_view format = "x8$,$,$,$,$";
};
