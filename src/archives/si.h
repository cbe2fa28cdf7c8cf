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
  static constexpr std::tuple fields{
      field("saldo1", &rec::si::saldo1),           field("saldo2", &rec::si::saldo2),
      field("saldo3", &rec::si::saldo3),           field("saldo4", &rec::si::saldo4),
      field("saldo5", &rec::si::saldo5),           field("saldo6", &rec::si::saldo6),
      field("saldo7", &rec::si::saldo7),           field("saldo8", &rec::si::saldo8),
      field("saldo9", &rec::si::saldo9),           field("saldo10", &rec::si::saldo10),
      field("saldo11", &rec::si::saldo11),         field("saldo12", &rec::si::saldo12),
      field("creditoprec", &rec::si::creditoprec),
  };
  static_assert(formatOf(fields) == format);
};
