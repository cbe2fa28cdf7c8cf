// VAT rows of sales: one record for each VAT row of a sales invoice or customer credit note.
// Primary key: the `pr` counter "iv" as numberText (one leading blank).
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct iv {
  std::string mese;     // of the registration date, two digits
  std::string numero;   // last five digits of the document number
  std::string datadoc;  // dd/mm/yyyy
  std::string conto;    // the customer
  double imponibile = 0;
  std::string codiva;
  std::string aliquota;  // rate as numberText, taken from civa at posting
  double imposta = 0;
  std::string registro;
  std::string chiavereg;  // registro + numero
  std::string datareg;    // dd/mm/yyyy
};

}  // namespace rec

template <>
struct archives::Layout<rec::iv> {
  static constexpr std::string_view prefix = "iv";
  static constexpr int code = 5;
  static constexpr std::string_view format = "$,x5$,$,x5$,#,$,$,#,$,x6$,$";
};
