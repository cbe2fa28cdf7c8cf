// Documents: one record may carry a document through its life, as an offer, an order, a delivery note and an
// invoice, each with its number and date. Primary key: the `pr` counter "xx", eight digits.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct xx {
  template <class T>
  using Rows = std::array<T, 401>;  // 1 to 400
  template <class T>
  using Codes = std::array<T, 25>;  // of the VAT summary, in the order of the VAT table

  std::string numoff;   // offer
  std::string numconf;  // order confirmation
  std::string numbp;    // pro-forma delivery note
  std::string numbv;    // delivery note of sale
  std::string numfp;    // pro-forma invoice
  std::string numfv;    // register and number of the invoice
  std::string numbr;    // return note
  std::string numbb;    // delivery note without sale
  std::string numnc;    // register and number of the credit note
  std::string numor;    // supplier order
  std::string numbc;    // goods-in note
  std::string numrr;    // register and number of the receipt
  std::string dataoff, dataconf, databp, databv, datafp, datafv, databr, databb, datanc, dataor, databc,
      datarr;                        // yyyymmdd, of the numbers in turn
  std::int16_t accompagnatoria = 0;  // 1: accompanying invoice
  std::string cliente;               // customer or supplier
  std::string agente1;
  std::string datarif;
  double trasporto = 0;
  double imballo = 0;
  double varie = 0;
  double bollo = 0;
  std::int16_t regimeiva = 0;  // 0 normal, 1 exempt, 2 suspended
  std::string codiceiva;
  double scontocassa = 0;
  std::int16_t estera = 0;  // 1: in foreign currency
  double cambio = 0;
  std::string valuta;
  std::string magazzino;
  std::string rifcontabile;  // number of the journal's entry
  std::string agente2;
  std::string registro;
  std::string numrif;
  Rows<std::string> codice;  // article, "*" a description continued, "**" a description alone
  Rows<std::string> descrizione;
  Rows<double> quantita{};
  Rows<double> prezzo{};
  Rows<std::int16_t> sconto1{}, sconto2{}, sconto3{};
  Rows<double> importo{};
  Rows<std::string> codiceivariga;
  Rows<std::string> rifriga;  // key of the stock movement
  double totalemerce = 0;
  std::int16_t destinazione = 0;  // 1 to 30
  Codes<std::string> codicevatab;
  Codes<double> aliquota{};
  Codes<double> imponibile{};
  Codes<double> imposta{};
  double provvigione1 = 0;
  double provvigione2 = 0;
  std::string riganote;
  std::string campo63;
  std::int16_t porto = 0;       // 1 "Porto franco", 2 "Porto assegnato"
  std::int16_t spedizione = 0;  // 1 "Mittente", 2 "Vettore", 3 "Destinatario"
  std::string vettorenome;
  std::string vettorevia;
  std::string aspetto;
  std::int16_t colli = 0;
  double pesonetto = 0;
  double pesolordo = 0;
  std::string causale;
  std::string datatrasporto;
  std::string oratrasporto;
  std::string campo75;
  std::string pagamento;
  double acconto = 0;
  double campo78 = 0;
  std::int16_t campo79 = 0;
  std::int16_t campo80 = 0;
};

}  // namespace rec

template <>
struct archives::Layout<rec::xx> {
  static constexpr std::string_view prefix = "xx";
  static constexpr int code = 12;
  static constexpr std::string_view format =
      "x6$,x6$,x6$,x6$,x6$,x7$,x6$,x6$,x7$,x6$,x6$,x6$,"              // numbers of the twelve kinds
      "$,$,$,$,$,$,$,$,$,$,$,$,"                                      // their dates
      "%,x5$,x5$,x8$,#,#,#,#,%,$,#,%,#,$,$,$,$,$,$,"                  // head
      "A401$,A401$,A401#,A401#,A401%,A401%,A401%,A401#,A401$,A401$,"  // rows
      "#,%,A25$,A25#,A25#,A25#,#,#,$,$,"                              // totals
      "%,%,$,$,$,%,#,#,$,$,$,$,$,#,#,%,%";                            // transport and payment
};
