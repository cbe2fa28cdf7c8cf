// Journal rows. Primary key: the `pr` counter "mc", eight digits.
#pragma once

#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct mc {
  std::string datareg;     // yyyymmdd
  std::string numdoc;      // six digits
  std::string datadoc;     // yyyymmdd
  std::string protocollo;  // of a purchase
  std::string conto;
  double dare = 0;
  double avere = 0;    // one of the two is 0
  std::string nummov;  // the entry: the number of its first row, plain digits
  std::string descrizione;
  std::string chiavecontodoc;   // conto + datadoc + numdoc
  std::string chiavecontodata;  // conto + datareg
  std::string chiavedatadoc;    // datareg + numdoc
  std::string causale;          // "fv", "fa", "ca", "cv", "if", "pf", "co", "mg", "ce", "cp", "ap"
  std::string registro;
  std::int16_t daemissione = 0;  // 1: posted by a document, not to be revised from the journal
  std::string riservato;
};

}  // namespace rec

template <>
struct archives::Layout<rec::mc> {
  static constexpr std::string_view prefix = "mc";
  static constexpr int code = 8;
  static constexpr std::string_view format = "x8$,$,$,$,$,#,#,x8$,$,x19$,x13$,x14$,$,$,%,$";
};
