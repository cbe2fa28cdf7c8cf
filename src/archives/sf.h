// Due dates of suppliers and agents. Primary key: the `pr` counter "scafornrd", eight digits.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct sf {
  std::string numero;
  std::string datafatt;  // yyyymmdd
  std::string conto;     // the supplier or agent
  double importo = 0;
  std::string scadenza;     // yyyymmdd
  std::string pagamento;    // registration date of the payment; empty while open
  std::string chiaveconto;  // conto + scadenza
  std::string tipo;         // "rd" or "rb"
  std::string riservato9;
};

}  // namespace rec

template <>
struct archives::Layout<rec::sf> {
  static constexpr std::string_view prefix = "sf";
  static constexpr int code = 19;
  static constexpr std::string_view format = "$,$,x5$,#,x8$,$,x13$,$,$";
};
