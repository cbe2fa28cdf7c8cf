// VAT rows of purchases: one record for each VAT row of a purchase invoice or supplier credit note.
// Primary key: the `pr` counter "ia" as numberText (one leading blank).
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct ia {
  std::string mese;  // of the registration date, two digits
  std::string protocollo;
  std::string numero;   // of the supplier's document
  std::string datadoc;  // dd/mm/yyyy
  std::string conto;    // the supplier
  double imponibile = 0;
  std::string codiva;
  std::string aliquota;  // rate as numberText, taken from civa at posting
  double imposta = 0;
  std::string registro;
  std::string chiavereg;  // registro + protocollo
  std::string datareg;    // dd/mm/yyyy
  std::string riservato;
};

}  // namespace rec

template <>
struct archives::Layout<rec::ia> {
  static constexpr std::string_view prefix = "ia";
  static constexpr int code = 6;
  static constexpr std::string_view format = "$,x5$,$,$,x5$,#,$,$,#,$,x6$,$,$";
};
