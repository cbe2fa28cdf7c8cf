#include "ledger/entry_dues.h"

#include <algorithm>
#include <optional>

#include "common/date.h"
#include "common/text.h"
#include "ledger/vat_rows.h"

namespace tarvex {
namespace {

constexpr int kByDocument = 10, kByAccountAndDate = 11;  // of mc

// What a document makes due of its customer or to its supplier: below 0 for a credit note, and for an invoice
// that takes back more than it charges.
double amountDue(const rec::mc& first, VatSide side) {
  return side == VatSide::sales ? first.dare - first.avere : first.avere - first.dare;
}

// The instalments of a document bear its number and the date from which they were reckoned.
InstalmentRef documentOf(const rec::mc& first, VatSide side) {
  return {first.conto, first.numdoc, side == VatSide::purchases ? first.datadoc : first.datareg};
}

ClosedRow rowOf(const rec::tt& typed) {
  return {common::trim(typed.voce), common::trim(common::cut(typed.testo, 10)),
          common::trim(typed.testo.substr(std::min<std::size_t>(typed.testo.size(), 10)))};
}

// The customer or supplier: the account of the lines behind the first, which stands on the contropartita.
std::string subjectOf(const JournalEntry& entry) {
  return entry.lines.size() < 2 ? std::string() : entry.lines[1].conto;
}

void reopen(Session& session, const JournalEntry& entry) {
  const rec::mc& first = entry.lines.front();
  const DueLedger ledger = closedLedger(first.causale);
  for (const rec::tt& typed : entry.rows) {
    const ClosedRow row = rowOf(typed);
    if (row.numero.empty()) continue;
    for (const InstalmentRef& ref : instalmentsOf(session, ledger, subjectOf(entry), row))
      if (!reopenInstalment(session, ledger, ref, first.datareg).empty()) break;
  }
}

// The first line of a sale of the account under a key of an index of the journal that `wanted` takes.
template <class Wanted>
std::optional<rec::mc> saleUnder(Session& session, int index, const std::string& key, const Wanted& wanted) {
  OpenArchive<rec::mc> mc(session, 1573, 1574);
  store::Code code = mc->search(index, key);
  for (; code == store::kOk && mc->indexKey() == key; code = mc->next(index))
    if ((mc->B.causale == "fv" || mc->B.causale == "cv") && wanted(mc->B)) return mc->B;
  if (code != store::kOk && code != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, mc->code, 1575);
  return {};
}

}  // namespace

DueLedger closedLedger(std::string_view causale) { return causale == "pf" ? DueLedger::sf : DueLedger::sd; }

std::vector<InstalmentRef> instalmentsOf(Session& session, DueLedger ledger, const std::string& conto,
                                         const ClosedRow& row) {
  const InstalmentRef named{conto, row.numero, common::DateToKey(row.datafatt),
                            common::DateToKey(row.scadenza)};
  if (ledger == DueLedger::sf) return {named};
  const std::string document = conto + named.datafatt + common::right(common::zeroFill(row.numero, 6), 6);
  const auto sale = saleUnder(session, kByDocument, document, [](const rec::mc&) { return true; });
  if (!sale || sale->datareg == named.datafatt) return {named};
  InstalmentRef registered = named;
  registered.datafatt = sale->datareg;
  return {named, registered};
}

std::string supplierNumber(Session& session, const rec::mc& firstLine) {
  for (const DueDate& due : dueDatesOf(session, DueLedger::sf, firstLine.conto))
    if (due.datafatt == firstLine.datadoc && sameNumber(due.numero, firstLine.numdoc, 6)) return due.numero;
  return firstLine.numdoc;
}

void bearDocument(Session& session, DueDate& due) {
  if (due.ledger == DueLedger::sf) return;
  const auto sale = saleUnder(session, kByAccountAndDate, due.conto + due.datafatt,
                              [&](const rec::mc& line) { return sameNumber(line.numdoc, due.numero); });
  if (!sale) return;
  due.numero = sale->numdoc;
  due.datafatt = sale->datadoc;
}

DueDates fallingDue(Session& session, const InvoiceKind& kind, const InvoiceDocument& document) {
  const bool sale = kind.side == VatSide::sales;
  if (kind.side == VatSide::receipts) return {};
  if (kind.creditNote && session.param.ncrimesse != 1) return {};
  const std::string date = common::DateToKey(sale ? document.datareg : document.datadoc);
  const std::string number = sale ? common::right(common::zeroFill(document.numero, 5), 5) : document.numero;
  return dueDatesFor(session, kind.creditNote ? -document.importo : document.importo, number, date,
                     document.conto);
}

std::vector<DueDate> takeDuesBack(Session& session, const JournalEntry& entry) {
  const rec::mc& first = entry.lines.front();
  if (first.causale == "if" || first.causale == "pf") return reopen(session, entry), std::vector<DueDate>();
  const auto side = vatSideOf(first.causale);
  if (!side || *side == VatSide::receipts) return {};
  return removeDueDates(session, documentOf(first, *side), amountDue(first, *side));
}

}  // namespace tarvex
