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
  static constexpr std::tuple fields{
      field("mese", &rec::ic::mese),
      field("numero", &rec::ic::numero, {5}),
      field("datareg", &rec::ic::datareg, {8}),
      field("imponibile", &rec::ic::imponibile),
      field("codiva", &rec::ic::codiva),
      field("aliquota", &rec::ic::aliquota),
      field("imposta", &rec::ic::imposta),
      field("riservato8", &rec::ic::riservato8),
      field("registro", &rec::ic::registro),
      field("chiavereg", &rec::ic::chiavereg, {6}),
      field("riservato11", &rec::ic::riservato11),
      field("riservato12", &rec::ic::riservato12),
  };
  static_assert(formatOf(fields) == format);
};
