#include "ledger/entry_dues.h"

#include <algorithm>

#include "common/date.h"
#include "common/text.h"
#include "ledger/vat_rows.h"

namespace tarvex {
namespace {

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
    reopenInstalment(
        session, ledger,
        {subjectOf(entry), row.numero, common::DateToKey(row.datafatt), common::DateToKey(row.scadenza)},
        first.datareg);
  }
}

}  // namespace

DueLedger closedLedger(std::string_view causale) { return causale == "pf" ? DueLedger::sf : DueLedger::sd; }

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
  return removeDueDates(session, documentOf(first, *side), amountDue(first, *side) < 0);
}

}  // namespace tarvex
