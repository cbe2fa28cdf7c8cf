// Scheda cliente, fornitore, agente: what each shows.
#include <algorithm>
#include <array>

#include "common/mask.h"
#include "parties/card.h"
#include "parties/forms.h"
#include "parties/sheet.h"

namespace tarvex {
namespace {

using enum SheetPage;

std::string amount(double value) { return common::format("###,###,##0.00", value); }

// A maggiorazione bears its sign behind it.
std::string discount(double percent) { return common::format("#0.0", percent) + (percent > 0 ? "+" : ""); }

std::string vatState(const rec::pc& party) {
  if (party.esenteiva == 1) return party.codiceiva;
  if (party.sospensioneiva == 1) return " Iva in sospensione";
  return party.ivaridotta == 1 ? " Iva ridotta" : " Iva normale";
}

template <std::string rec::pc::*field>
std::string textOf(const rec::pc& party) {
  return party.*field;
}
template <double rec::pc::*field>
std::string amountOf(const rec::pc& party) {
  return amount(party.*field);
}

std::string percent(double value) { return common::format("#0.0", value); }

std::string priceList(const rec::pc& party) { return "Listino prezzi " + std::to_string(party.listino); }

// What the cards of all kinds show.
constexpr SheetLine kAddress[] = {
    {anagrafica, false, "ragsoc", "Ragione sociale", 32, textOf<&rec::pc::ragsoc>},
    {anagrafica, false, "ragsoc2", " ", 32, textOf<&rec::pc::ragsoc2>},
    {anagrafica, false, "indirizzo", "Indirizzo", 42, textOf<&rec::pc::indirizzo>},
    {anagrafica, false, "cap", "CAP", 19, textOf<&rec::pc::cap>},
    {anagrafica, true, "citta", "Città", 32, textOf<&rec::pc::citta>},
    {anagrafica, true, "provincia", "Prov.", 19, textOf<&rec::pc::provincia>},
    {anagrafica, false, "nazione", "Nazione", 32, textOf<&rec::pc::nazione>},
    {anagrafica, false, "partitaiva", "Partita iva", 19, textOf<&rec::pc::partitaiva>},
    {anagrafica, true, "partitaivaestero", "Partita iva estero", 19, textOf<&rec::pc::partitaivaestero>},
    {anagrafica, false, "codicefiscale", "Codice fiscale", 19, textOf<&rec::pc::codicefiscale>},
    {anagrafica, false, "telefono", "Tel.", 22, textOf<&rec::pc::telefono>},
    {anagrafica, true, "fax", "Fax", 22, textOf<&rec::pc::fax>},
    {anagrafica, false, "email", "e-mail", 42, textOf<&rec::pc::email>},
};
constexpr SheetLine kBank[] = {
    {condizioni, false, "banca", "Banca", 42, textOf<&rec::pc::banca>},
    {condizioni, false, "abi", "ABI", 19, textOf<&rec::pc::abi>},
    {condizioni, true, "cab", "CAB", 19, textOf<&rec::pc::cab>},
    {condizioni, false, "pagamento", "Condizioni di pagamento", 42, textOf<&rec::pc::pagamento>},
};
constexpr SheetLine kBalance[] = {
    {contabilita, false, "saldoiniziale", "Saldo iniziale:", 16, amountOf<&rec::pc::saldoiniziale>},
    {contabilita, false, "dare", "Progr. dare:", 16, amountOf<&rec::pc::dare>},
    {contabilita, false, "avere", "Progr. avere:", 16, amountOf<&rec::pc::avere>},
    {contabilita, false, "saldo", "Saldo finale:", 16, amountOf<&rec::pc::saldo>},
};

constexpr SheetLine kCustomerTerms[] = {
    {condizioni, false, "scontocassa", "Sconto cassa", 8,
     [](const rec::pc& c) { return percent(c.scontocassa); }},
    {condizioni, true, "statoiva", "Iva", 22, vatState},
    {condizioni, false, "sconto1", "Sconti/Maggiorazioni", 8,
     [](const rec::pc& c) { return discount(c.sconto1); }},
    {condizioni, true, "sconto2", " ", 8, [](const rec::pc& c) { return discount(c.sconto2); }},
    {condizioni, true, "sconto3", " ", 8, [](const rec::pc& c) { return discount(c.sconto3); }},
    {condizioni, false, "tipocliente", "Tipo cliente", 22, textOf<&rec::pc::tipocliente>},
    {condizioni, true, "zona", "Zona", 19, textOf<&rec::pc::zona>},
    {condizioni, false, "campolibero1", "Campo libero 1", 32, textOf<&rec::pc::campolibero1>},
    {condizioni, false, "campolibero2", "Campo libero 2", 32, textOf<&rec::pc::campolibero2>},
    {condizioni, false, "listino", " ", 20, priceList},
};
constexpr SheetLine kCustomerFigures[] = {
    {contabilita, false, "fido", "Fido:", 16, amountOf<&rec::pc::fido>},
    {contabilita, false, "fatturatocorr", "Fatturato:", 16, amountOf<&rec::pc::fatturato>},
    {contabilita, false, "fatturatoprec", "Fatturato anno prec.:", 16, amountOf<&rec::pc::fatturatoprec>},
    {contabilita, false, "dataultfatt", "Data ultima fattura:", 16,
     [](const rec::pc& c) { return shownDate(c.dataultfatt); }},
};

constexpr SheetLine kSupplierTerms[] = {
    {condizioni, false, "tipocliente", "Tipo fornitore", 22, textOf<&rec::pc::tipocliente>},
    {condizioni, false, "campolibero1", "Campo libero", 32, textOf<&rec::pc::campolibero1>},
    {condizioni, false, "listino", " ", 20, priceList},
};
constexpr SheetLine kBirth[] = {
    {contabilita, false, "datanascita", "Data di nascita", 19,
     [](const rec::pc& p) { return shownDate(p.datanascita); }},
    {contabilita, false, "comunenascita", "Comune di nascita", 32, textOf<&rec::pc::comunenascita>},
    {contabilita, true, "provnascita", "Prov.", 19, textOf<&rec::pc::provnascita>},
};

template <std::size_t... sizes>
constexpr auto joined(const SheetLine (&... parts)[sizes]) {
  std::array<SheetLine, (sizes + ...)> all{};
  auto end = all.begin();
  ((end = std::copy(std::begin(parts), std::end(parts), end)), ...);
  return all;
}
constexpr auto kCustomerLines = joined(kAddress, kBank, kCustomerTerms, kBalance, kCustomerFigures);
constexpr auto kSupplierLines = joined(kAddress, kBank, kSupplierTerms, kBalance, kBirth);

constexpr DocumentColumn kSales[] = {
    {"Ordine", &rec::xx::numor, &rec::xx::dataor},       {"Offerta", &rec::xx::numoff, &rec::xx::dataoff},
    {"Conferma", &rec::xx::numconf, &rec::xx::dataconf}, {"B.prof.", &rec::xx::numbp, &rec::xx::databp},
    {"B.n.v.", &rec::xx::numbb, &rec::xx::databb},       {"F.prof.", &rec::xx::numfp, &rec::xx::datafp},
    {"B.vend.", &rec::xx::numbv, &rec::xx::databv},      {"Fattura", &rec::xx::numfv, &rec::xx::datafv},
};
constexpr DocumentColumn kPurchases[] = {
    {"Ordine", &rec::xx::numor, &rec::xx::dataor},
    {"B.carico", &rec::xx::numbc, &rec::xx::databc},
};

DueLists ofCustomer(Session& session, const std::string& code) {
  return {openItemsOf(session, DueLedger::st, code), openItemsOf(session, DueLedger::sd, code)};
}

DueLists ofSupplier(Session& session, const std::string& code) {
  DueLists lists;
  for (DueDate& due : openItemsOf(session, DueLedger::sf, code))
    (due.tipo == "rb" ? lists.first : lists.second).push_back(std::move(due));
  return lists;
}

DueLists ofAgent(Session& session, const std::string& code) {
  DueLists lists;
  for (DueDate& due : dueDatesOf(session, DueLedger::sf, code))
    (isOpen(due) ? lists.second : lists.first).push_back(std::move(due));
  return lists;
}

constexpr std::string_view kReceipts = "Ricevute banc.:", kRemittances = "Rimesse dirette:";

constexpr SheetKind kCustomerSheet{.unit = "VISCLI",
                                   .title = "Scheda cliente",
                                   .party = kCustomer,
                                   .lines = kCustomerLines,
                                   .documents = kSales,
                                   .firstList = kReceipts,
                                   .secondList = kRemittances,
                                   .dueLists = ofCustomer};
constexpr SheetKind kSupplierSheet{.unit = "VISFORN",
                                   .title = "Scheda fornitore",
                                   .party = kSupplier,
                                   .lines = kSupplierLines,
                                   .documents = kPurchases,
                                   .firstList = kReceipts,
                                   .secondList = kRemittances,
                                   .dueLists = ofSupplier};
constexpr SheetKind kAgentSheet{.unit = "VISAGEN",
                                .title = "Scheda agente",
                                .party = kAgent,
                                .lines = kSupplierLines,
                                .documents = {},
                                .firstList = "Evasi",
                                .secondList = "Inevasi",
                                .dueLists = ofAgent,
                                .dueListsOnDemand = true};

}  // namespace

std::unique_ptr<ui::Form> makeViscli(Session& session) { return makeSheet(session, kCustomerSheet); }
std::unique_ptr<ui::Form> makeVisforn(Session& session) { return makeSheet(session, kSupplierSheet); }
std::unique_ptr<ui::Form> makeVisagen(Session& session) { return makeSheet(session, kAgentSheet); }

}  // namespace tarvex
