// Chart of accounts, customers, suppliers and agents: every subject of the ledger, with its running balance.
// Primary key: the voice's own number, five digits; below 50 stand the predefined voices.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct pc {
  std::string ragsoc;  // no two voices have the same
  std::string indirizzo;
  std::string citta;
  std::string partitaiva;
  std::string note;    // rich text
  std::string mastro;  // own number of a mastro, else that of its mastro
  std::string tipo;    // "m" mastro, "cc" conto, "s" sottoconto, "c" customer, "f" supplier, "ag" agent
  std::string natura;  // "p" balance sheet, "e" income
  double saldoiniziale = 0;
  double dare = 0;   // progressive of the year
  double avere = 0;  // progressive of the year
  double saldo = 0;  // saldoiniziale + dare - avere
  std::string ragsoc2;
  std::string tipocliente;
  std::string zona;
  std::string agente1;
  std::string conto;   // own number of a conto, else that of its conto; empty on a mastro
  std::string codice;  // mastro, conto and sottoconto, five digits each
  std::string cap;
  std::string provincia;
  std::string partitaivaestero;
  std::string codicefiscale;
  std::string pagamento;  // description of the payment condition
  std::string email;
  std::string banca;
  std::string abi;
  std::string cab;
  std::string nazione;
  double provvigione1 = 0;
  std::int16_t tipoprovv1 = 0;  // 0 none, 1 by the customer, 2 by the article
  std::int16_t sconto1 = 0;
  std::int16_t sconto2 = 0;
  std::int16_t sconto3 = 0;
  std::int16_t scontoauto = 0;
  std::int16_t listino = 0;
  std::int16_t riservato36 = 0;
  std::string dataultfatt;  // yyyymmdd
  double fido = 0;
  std::string telefono;
  std::string fax;
  double scontocassa = 0;
  std::int16_t esenteiva = 0;  // 1: exempt, under codiceiva
  std::string codiceiva;
  double fatturato = 0;
  double fatturatoprec = 0;
  std::int16_t sospensioneiva = 0;
  std::string agente2;
  double provvigione2 = 0;
  std::int16_t tipoprovv2 = 0;
  std::string campolibero1;
  std::string campolibero2;
  std::int16_t addebitobollo = 0;
  std::string datanascita;
  std::string provnascita;
  std::string comunenascita;
  double ivaridotta = 0;  // 1: reduced VAT, under codiceiva
  double riservato57 = 0;
  std::string chiavetipo;                      // "x", "s", "c" or "f" by the kind, then ragsoc
  std::string chiavegruppo;                    // "ss" or "cf", then ragsoc
  std::array<std::string, 31> destnominativo;  // alternative destinations
  std::array<std::string, 31> destindirizzo;
  std::array<std::string, 31> destcitta;
};

}  // namespace rec

template <>
struct archives::Layout<rec::pc> {
  static constexpr std::string_view prefix = "pc";
  static constexpr int code = 1;
  static constexpr std::string_view format =
      "x30$,$,$,X16$,$,$,x2$,$,#,#,#,#,$,$,X10$,X5$,$,X15$,$,x2$,$,$,$,$,$,$,$,$,#,%,%,%,%,"
      "%,%,%,$,#,$,$,#,%,$,#,#,%,$,#,%,$,$,%,$,$,$,#,#,x31$,x32$,A31$,A31$,A31$";
};
