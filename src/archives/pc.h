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
  static constexpr std::tuple fields{
      field("ragsoc", &rec::pc::ragsoc, {30}),
      field("indirizzo", &rec::pc::indirizzo),
      field("citta", &rec::pc::citta),
      field("partitaiva", &rec::pc::partitaiva, {16, 'X'}),
      field("note", &rec::pc::note),
      field("mastro", &rec::pc::mastro),
      field("tipo", &rec::pc::tipo, {2}),
      field("natura", &rec::pc::natura),
      field("saldoiniziale", &rec::pc::saldoiniziale),
      field("dare", &rec::pc::dare),
      field("avere", &rec::pc::avere),
      field("saldo", &rec::pc::saldo),
      field("ragsoc2", &rec::pc::ragsoc2),
      field("tipocliente", &rec::pc::tipocliente),
      field("zona", &rec::pc::zona, {10, 'X'}),
      field("agente1", &rec::pc::agente1, {5, 'X'}),
      field("conto", &rec::pc::conto),
      field("codice", &rec::pc::codice, {15, 'X'}),
      field("cap", &rec::pc::cap),
      field("provincia", &rec::pc::provincia, {2}),
      field("partitaivaestero", &rec::pc::partitaivaestero),
      field("codicefiscale", &rec::pc::codicefiscale),
      field("pagamento", &rec::pc::pagamento),
      field("email", &rec::pc::email),
      field("banca", &rec::pc::banca),
      field("abi", &rec::pc::abi),
      field("cab", &rec::pc::cab),
      field("nazione", &rec::pc::nazione),
      field("provvigione1", &rec::pc::provvigione1),
      field("tipoprovv1", &rec::pc::tipoprovv1),
      field("sconto1", &rec::pc::sconto1),
      field("sconto2", &rec::pc::sconto2),
      field("sconto3", &rec::pc::sconto3),
      field("scontoauto", &rec::pc::scontoauto),
      field("listino", &rec::pc::listino),
      field("riservato36", &rec::pc::riservato36),
      field("dataultfatt", &rec::pc::dataultfatt),
      field("fido", &rec::pc::fido),
      field("telefono", &rec::pc::telefono),
      field("fax", &rec::pc::fax),
      field("scontocassa", &rec::pc::scontocassa),
      field("esenteiva", &rec::pc::esenteiva),
      field("codiceiva", &rec::pc::codiceiva),
      field("fatturato", &rec::pc::fatturato),
      field("fatturatoprec", &rec::pc::fatturatoprec),
      field("sospensioneiva", &rec::pc::sospensioneiva),
      field("agente2", &rec::pc::agente2),
      field("provvigione2", &rec::pc::provvigione2),
      field("tipoprovv2", &rec::pc::tipoprovv2),
      field("campolibero1", &rec::pc::campolibero1),
      field("campolibero2", &rec::pc::campolibero2),
      field("addebitobollo", &rec::pc::addebitobollo),
      field("datanascita", &rec::pc::datanascita),
      field("provnascita", &rec::pc::provnascita),
      field("comunenascita", &rec::pc::comunenascita),
      field("ivaridotta", &rec::pc::ivaridotta),
      field("riservato57", &rec::pc::riservato57),
      field("chiavetipo", &rec::pc::chiavetipo, {31}),
      field("chiavegruppo", &rec::pc::chiavegruppo, {32}),
      field("destnominativo", &rec::pc::destnominativo),
      field("destindirizzo", &rec::pc::destindirizzo),
      field("destcitta", &rec::pc::destcitta),
  };
  static_assert(formatOf(fields) == format);
};
