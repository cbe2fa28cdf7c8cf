#include "parties/party_list.h"

#include <algorithm>

#include "common/amount.h"
#include "common/text.h"
#include "parties/card.h"

namespace tarvex {
namespace {

// Three percentages, those alone that are set; a maggiorazione bears its sign behind it.
std::string discounts(const rec::pc& party) {
  std::string text;
  for (const std::int16_t percent : {party.sconto1, party.sconto2, party.sconto3}) {
    if (percent == 0) continue;
    if (!text.empty()) text += ' ';
    text.append(std::to_string(percent)).append(percent > 0 ? "+" : "");
  }
  return text;
}

template <std::string rec::pc::*field>
std::string textOf(const ListedParty& row) {
  return row.party.*field;
}
template <double rec::pc::*field>
double numberOf(const ListedParty& row) {
  return row.party.*field;
}

constexpr PartyColumn text(std::string_view tick, std::string_view head, int width,
                           std::string (*of)(const ListedParty&)) {
  return {tick, head, width, of};
}
constexpr PartyColumn amount(std::string_view tick, std::string_view head, int width,
                             double (*of)(const ListedParty&), int yearsBack = -1) {
  return {tick, head, width, nullptr, of, yearsBack};
}

constexpr PartyColumn kName = text("Ragione sociale", "Ragione sociale", 30, textOf<&rec::pc::ragsoc>),
                      kName2 = text("2° riga rag. sociale", "2° riga", 30, textOf<&rec::pc::ragsoc2>),
                      kAddress = text("Indirizzo", "Indirizzo", 40, textOf<&rec::pc::indirizzo>),
                      kPostalCode = text("CAP", "CAP", 5, textOf<&rec::pc::cap>),
                      kCity = text("Città", "Città", 30, textOf<&rec::pc::citta>),
                      kProvince = text("Provincia", "Prov.", 5, textOf<&rec::pc::provincia>),
                      kVatNumber = text("Partita iva", "P. iva", 11, textOf<&rec::pc::partitaiva>),
                      kForeign =
                          text("Partita iva estero", "P. iva estero", 16, textOf<&rec::pc::partitaivaestero>),
                      kTaxCode =
                          text("Codice fiscale", "Codice fiscale", 16, textOf<&rec::pc::codicefiscale>),
                      kBank = text("Banca", "Banca", 40, textOf<&rec::pc::banca>),
                      kAbi = text("Abi", "Abi", 5, textOf<&rec::pc::abi>),
                      kCab = text("Cab", "Cab", 5, textOf<&rec::pc::cab>),
                      kTelephone = text("Telefono", "Telefono", 20, textOf<&rec::pc::telefono>),
                      kFax = text("Fax", "Fax", 20, textOf<&rec::pc::fax>),
                      kCondition = text("Condizioni pagamento", "Pagamento", 40, textOf<&rec::pc::pagamento>),
                      kBalance = amount("Saldo contabile", "          Saldo", 15, numberOf<&rec::pc::saldo>),
                      kEmail = text("e-mail", "e-mail", 60, textOf<&rec::pc::email>);

constexpr PartyColumn kOfCustomers[] = {
    kName,
    kName2,
    kAddress,
    kPostalCode,
    kCity,
    kProvince,
    kVatNumber,
    kForeign,
    kTaxCode,
    kBank,
    kAbi,
    kCab,
    kTelephone,
    kFax,
    text("Tipo cliente", "Tipo cliente", 20, textOf<&rec::pc::tipocliente>),
    text("Zona", "Zona", 10, textOf<&rec::pc::zona>),
    text("Campo libero 1°", "Libero 1", 30, textOf<&rec::pc::campolibero1>),
    text("Campo libero 2°", "Libero 2", 30, textOf<&rec::pc::campolibero2>),
    text("Agente 1°", "Agente 1°", 30, [](const ListedParty& row) { return row.agente1; }),
    text("Agente 2°", "Agente 2°", 30, [](const ListedParty& row) { return row.agente2; }),
    kCondition,
    text("Sconto", "Sconto", 14, [](const ListedParty& row) { return discounts(row.party); }),
    text("Listino prezzi", "Listino", 7,
         [](const ListedParty& row) { return std::to_string(row.party.listino); }),
    amount("Fido", "          Fido", 14, numberOf<&rec::pc::fido>),
    kBalance,
    amount("Fatturato", "     Fatt. ", 15, numberOf<&rec::pc::fatturato>, 0),
    amount({}, "     Fatt. ", 15, numberOf<&rec::pc::fatturatoprec>, 1),
    text("Data ultima fattura", "Data u.f.  ", 11,
         [](const ListedParty& row) { return shownDate(row.party.dataultfatt); }),
    kEmail,
    text("Nazione", "Nazione", 30, textOf<&rec::pc::nazione>),
};

constexpr PartyColumn kOfSuppliers[] = {
    kName,       kName2,   kAddress,
    kPostalCode, kCity,    kProvince,
    kVatNumber,  kForeign, kTaxCode,
    kBank,       kAbi,     kCab,
    kTelephone,  kFax,     text("Tipo fornitore", "Tipo fornitore", 20, textOf<&rec::pc::tipocliente>),
    kCondition,  kBalance, text("Campo libero", "Libero", 30, textOf<&rec::pc::campolibero1>),
    kEmail,
};

// Alike whatever the case, the blanks around them apart.
std::string folded(std::string_view text) { return common::upper(common::trim(text)); }

bool within(const RangeFilter& filter, double value) {
  const double cents = common::roundBalance(value);
  return (!filter.from || cents >= common::roundBalance(*filter.from)) &&
         (!filter.to || cents <= common::roundBalance(*filter.to));
}

std::string range(const std::string& from, const std::string& to) {
  if (to.empty()) return "da " + from;
  return from.empty() ? "fino a " + to : "da " + from + " a " + to;
}

std::string captioned(std::string_view caption, const std::string& value) {
  constexpr std::size_t width = 20;
  return common::fit(caption, width) + value;
}

}  // namespace

std::span<const PartyColumn> columnsOf(const PartyKind& kind) {
  if (kind.isCustomer()) return kOfCustomers;
  return kOfSuppliers;
}

std::string headOf(const PartyColumn& column, const Session& session) {
  std::string head(column.head);
  if (column.yearsBack < 0) return head;
  const auto year = static_cast<long long>(common::numberValue(session.WorkYear));
  return head + common::zeroFill(year - column.yearsBack, 4);
}

// --- filters ---

bool PartyFilters::pass(const rec::pc& party) const {
  for (const TextFilter& filter : texts)
    if (!filter.value.empty() && folded(party.*filter.field) != folded(filter.value)) return false;
  for (const RangeFilter& filter : ranges)
    if (!within(filter, party.*filter.field)) return false;
  if (!agent.empty() && party.agente1 != agent && party.agente2 != agent) return false;
  if (priceList && party.listino != *priceList) return false;
  if (lastInvoiceFrom.empty() && lastInvoiceTo.empty()) return true;
  if (party.dataultfatt.empty() || party.dataultfatt < lastInvoiceFrom) return false;
  return lastInvoiceTo.empty() || party.dataultfatt <= lastInvoiceTo;
}

std::vector<std::string> PartyFilters::told() const {
  std::vector<std::string> lines;
  for (const TextFilter& filter : texts)
    if (!filter.value.empty()) lines.push_back(captioned(filter.caption, filter.value));
  if (!agent.empty()) lines.push_back(captioned("Agente:", agentName));
  if (priceList) lines.push_back(captioned("Listino prezzi:", std::to_string(*priceList)));
  const auto shown = [](const std::optional<double>& value) {
    return value ? common::toText(*value) : std::string();
  };
  for (const RangeFilter& filter : ranges)
    if (filter.from || filter.to)
      lines.push_back(captioned(filter.caption, range(shown(filter.from), shown(filter.to))));
  if (!lastInvoiceFrom.empty() || !lastInvoiceTo.empty())
    lines.push_back(
        captioned("Data ultima fatt.:", range(shownDate(lastInvoiceFrom), shownDate(lastInvoiceTo))));
  return lines;
}

// --- the walk ---

std::map<std::string, std::string> agentNames(Session& session) {
  std::map<std::string, std::string> names;
  auto& pc = session.pc;
  store::Code result = pc.search(7, kAgent.tipo);
  for (; result == store::kOk && pc.B.tipo == kAgent.tipo; result = pc.next(7))
    names[pc.primaryKey()] = pc.B.ragsoc;
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, pc.code, 4400);
  return names;
}

bool eachParty(Session& session, const PartyKind& kind, const PartyFilters& filters,
               const std::function<void(const ListedParty& row)>& each) {
  const std::string none;
  const std::map<std::string, std::string> names =
      kind.isCustomer() ? agentNames(session) : std::map<std::string, std::string>();
  const auto nameOf = [&](const std::string& code) -> const std::string& {
    const auto found = names.find(code);
    return found == names.end() ? none : found->second;
  };
  auto& pc = session.pc;
  pc.bof(1);
  while (pc.next(1) == store::kOk)
    if (pc.B.tipo == kind.tipo && filters.pass(pc.B))
      each({pc.B, nameOf(pc.B.agente1), nameOf(pc.B.agente2)});
  if (session.store.LastArchiveResult == store::kNotFound) return true;
  session.CheckArchiveResult(store::Operation::read, pc.code, 4401);
  return false;
}

}  // namespace tarvex
