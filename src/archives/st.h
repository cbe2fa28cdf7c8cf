// Due dates of customers by bank receipt. Primary key: the `pr` counter "scaclitr", eight digits.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct st {
  std::string numero;
  std::string datafatt;  // yyyymmdd
  std::string conto;     // the customer
  double importo = 0;
  std::string scadenza;  // yyyymmdd
  std::string riservato6;
  std::string emessa;  // "s" once the receipt is issued
  std::string riservato8;
};

}  // namespace rec

template <>
struct archives::Layout<rec::st> {
  static constexpr std::string_view prefix = "st";
  static constexpr int code = 18;
  static constexpr std::string_view format = "$,$,x5$,#,x8$,$,$,$";
};
