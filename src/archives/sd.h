// Due dates of customers by direct remittance. Primary key: the `pr` counter "scaclird", eight digits.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct sd {
  std::string numero;
  std::string datafatt;  // yyyymmdd
  std::string conto;     // the customer
  double importo = 0;
  std::string scadenza;     // yyyymmdd
  std::string pagamento;    // registration date of the collection; empty while open
  std::string chiaveconto;  // conto + scadenza
  std::string riservato8;
  std::string riservato9;
  std::string riservato10;
  std::string riservato11;
  double riservato12 = 0;
  double riservato13 = 0;
};

}  // namespace rec

template <>
struct archives::Layout<rec::sd> {
  static constexpr std::string_view prefix = "sd";
  static constexpr int code = 17;
  static constexpr std::string_view format = "$,$,x5$,#,x8$,$,x13$,$,$,$,$,#,#";
};
