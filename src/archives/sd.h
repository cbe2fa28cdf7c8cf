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
  static constexpr std::tuple fields{
      field("numero", &rec::sd::numero),
      field("datafatt", &rec::sd::datafatt),
      field("conto", &rec::sd::conto, {5}),
      field("importo", &rec::sd::importo),
      field("scadenza", &rec::sd::scadenza, {8}),
      field("pagamento", &rec::sd::pagamento),
      field("chiaveconto", &rec::sd::chiaveconto, {13}),
      field("riservato8", &rec::sd::riservato8),
      field("riservato9", &rec::sd::riservato9),
      field("riservato10", &rec::sd::riservato10),
      field("riservato11", &rec::sd::riservato11),
      field("riservato12", &rec::sd::riservato12),
      field("riservato13", &rec::sd::riservato13),
  };
  static_assert(formatOf(fields) == format);
};
