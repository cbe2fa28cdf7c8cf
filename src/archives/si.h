// VAT balances of a year: one record, key "1". A period's outcome is positive for a credit, negative for a
// debit below the minimum; a quarterly payer uses the first four.
#pragma once

#include "archives/layout.h"

namespace rec {

struct si {
  double saldo1 = 0;
  double saldo2 = 0;
  double saldo3 = 0;
  double saldo4 = 0;
  double saldo5 = 0;
  double saldo6 = 0;
  double saldo7 = 0;
  double saldo8 = 0;
  double saldo9 = 0;
  double saldo10 = 0;
  double saldo11 = 0;
  double saldo12 = 0;
  double creditoprec = 0;  // credit of the year before
};

}  // namespace rec

template <>
struct archives::Layout<rec::si> {
  static constexpr std::string_view prefix = "si";
  static constexpr int code = 11;
  static constexpr std::string_view format = "#############";
};
