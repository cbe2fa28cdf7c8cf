// VAT rows of receipts. Primary key: the `pr` counter "ic" as numberText (one leading blank).
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct ic {
  std::string mese;     // of the registration date, two digits
  std::string numero;   // last five digits
  std::string datareg;  // yyyymmdd
  double imponibile = 0;
  std::string codiva;
  std::string aliquota;  // rate as numberText, taken from civa at posting
  double imposta = 0;
  std::string riservato8;
  std::string registro;
  std::string chiavereg;  // registro + last digits of the number
  std::string riservato11;
  double riservato12 = 0;
};

}  // namespace rec

template <>
struct archives::Layout<rec::ic> {
  static constexpr std::string_view prefix = "ic";
  static constexpr int code = 7;
  static constexpr std::string_view format = "$,x5$,x8$,#,$,$,#,$,$,x6$,$,#";
};
