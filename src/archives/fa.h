// Turnover: one record for each invoice and credit note emitted.
// Primary key: register and number, as the document holds them.
#pragma once

#include <string>

#include "archives/layout.h"

namespace rec {

struct fa {
  std::string data;  // yyyymmdd
  std::string cliente;
  std::string zona;
  std::string provincia;
  std::string tipocliente;
  double importo = 0;  // total of the goods, negative for a credit note
  std::string agente1;
  std::string agente2;
  std::string riservato;
};

}  // namespace rec

template <>
struct archives::Layout<rec::fa> {
  static constexpr std::string_view prefix = "fa";
  static constexpr int code = 13;
  static constexpr std::string_view format = "$,x5$,x10$,x2$,x10$,#,x5$,x5$,$";
};
