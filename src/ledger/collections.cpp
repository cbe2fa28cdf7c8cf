#include "ledger/collections.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/entry_dues.h"

namespace tarvex {
namespace {

constexpr std::string_view kAllowancesGiven = "00020", kAllowancesTaken = "00015";
constexpr std::size_t kDateWidth = 10;

bool isFilled(const CollectionRow& row) {
  return !row.numero.empty() || row.importo != 0 || row.abbuono != 0;
}

std::string sixDigits(std::string_view number) { return common::right(common::zeroFill(number, 6), 6); }

// A line in debit, or in credit when `credit` is on; with its sign changed and on the other side when it is
// negative.
EntryLine lineOf(std::string_view conto, double amount, bool credit, std::string descrizione) {
  if (amount < 0) credit = !credit;
  const double size = std::fabs(amount);
  return {std::string(conto), credit ? 0 : size, credit ? size : 0, std::move(descrizione)};
}

void bearInvoice(EntryLine& line, const CollectionRow& row) {
  if (!row.numero.empty()) line.numdoc = sixDigits(row.numero);
  line.datadoc = row.datafatt;
}

EntryRow typedRow(const CollectionRow& row) {
  return {row.numero, common::fit(row.datafatt, kDateWidth) + row.scadenza, common::numberText(row.importo),
          common::numberText(row.abbuono)};
}

}  // namespace

double sumOfRows(const Collection& collection) {
  double sum = 0;
  for (const CollectionRow& row : collection.rows) sum += row.importo;
  return common::roundBalance(sum);
}

double imbalance(const Collection& collection) {
  return common::roundBalance(sumOfRows(collection) - collection.importo);
}

Entry collectionEntry(const CollectionKind& kind, const Collection& collection) {
  Entry entry;
  entry.head.causale = kind.causale();
  entry.head.datareg = collection.datareg;
  entry.head.datadoc = collection.datadoc;
  entry.head.numdoc = sixDigits(collection.numero);
  entry.lines.push_back(
      lineOf(collection.contropartita, collection.importo, kind.payment, collection.descrizione));
  for (const CollectionRow& row : collection.rows) {
    if (row.importo == 0) continue;
    entry.lines.push_back(lineOf(collection.conto, row.importo, !kind.payment, collection.descrizione));
    bearInvoice(entry.lines.back(), row);
  }
  const std::string allowance = collection.descrizione + " (abbuono)";
  for (const CollectionRow& row : collection.rows) {
    if (row.abbuono == 0) continue;
    entry.lines.push_back(lineOf(collection.conto, row.abbuono, !kind.payment, allowance));
    bearInvoice(entry.lines.back(), row);
    entry.lines.push_back(lineOf(kind.payment ? kAllowancesTaken : kAllowancesGiven, row.abbuono,
                                 kind.payment, collection.descrizione));
  }
  for (const CollectionRow& row : collection.rows)
    if (isFilled(row)) entry.rows.push_back(typedRow(row));
  return entry;
}

void closeInstalments(Session& session, const CollectionKind& kind, const Collection& collection) {
  const DueLedger ledger = closedLedger(kind.causale());
  const std::string date = common::DateToKey(collection.datareg);
  for (const CollectionRow& row : collection.rows) {
    if (row.numero.empty()) continue;
    for (const InstalmentRef& ref :
         instalmentsOf(session, ledger, collection.conto, {row.numero, row.datafatt, row.scadenza}))
      if (!closeInstalment(session, ledger, ref, date).empty()) break;
  }
}

std::vector<CollectionRow> typedRows(const std::vector<rec::tt>& rows) {
  std::vector<CollectionRow> typed;
  for (const rec::tt& row : rows) {
    const std::size_t split = std::min(row.testo.size(), kDateWidth);
    typed.push_back({row.voce, common::trim(row.testo.substr(0, split)),
                     common::trim(row.testo.substr(split)), common::numberValue(row.codice),
                     common::numberValue(row.importo)});
  }
  return typed;
}

}  // namespace tarvex
