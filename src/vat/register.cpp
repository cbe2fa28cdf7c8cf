#include "vat/register.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "common/date.h"
#include "common/text.h"

namespace tarvex {
namespace {

// The value of a number of any length, held where it can still be counted on from.
long whole(std::string_view number) {
  constexpr double most = 1e15;
  return std::lround(std::clamp(common::numberValue(number), -most, most));
}

std::string missingCode(std::string_view code) {
  return "Il codice iva " + std::string(code) +
         " non risulta più registrato nella tabella iva. Il registro non sarà stampato correttamente.";
}

// A number may stand twice in a register, on an invoice and on a credit note: they are two documents.
bool sameDocument(const RegisterRow& a, const RegisterRow& b) {
  return a.numero == b.numero && a.conto == b.conto && a.datadoc == b.datadoc;
}

std::optional<std::string> gapBetween(const RegisterKind& kind, const RegisterRow& previous,
                                      const RegisterRow& row) {
  if (kind.gap.empty()) return {};
  const long from = whole(previous.numero) + 1, to = whole(row.numero) - 1;
  if (to < from) return {};
  return std::string(kind.gap) + std::to_string(from) + "-" + std::to_string(to);
}

void sortRows(const RegisterKind& kind, std::vector<RegisterRow>& rows) {
  const bool byDate = kind.side == VatSide::receipts;
  const auto day = [byDate](const RegisterRow& row) {
    return byDate ? common::DateToKey(row.datareg) : std::string();
  };
  std::stable_sort(rows.begin(), rows.end(), [&](const RegisterRow& a, const RegisterRow& b) {
    return std::make_tuple(day(a), std::string_view(a.numero), a.posted) <
           std::make_tuple(day(b), std::string_view(b.numero), b.posted);
  });
}

}  // namespace

Register makeRegister(const RegisterKind& kind, std::vector<RegisterRow> rows, const VatTable& table) {
  Register made{.rows = std::move(rows), .totals = {}, .notices = {}};
  sortRows(kind, made.rows);
  SlotSums sums;
  const RegisterRow* previous = nullptr;
  for (RegisterRow& row : made.rows) {
    row.further = previous && sameDocument(*previous, row);
    row.slot = slotOf(table, row.codiva);
    if (row.slot >= 0) {
      sums[row.slot].add(row.imponibile, row.imposta);
      if (row.aliquota == 0) row.note = table[row.slot].descrizione;  // why the row bears no tax
    } else {
      row.note = row.codiva;
      made.notices.push_back({RegisterNotice::About::missingCode, missingCode(row.codiva)});
    }
    if (previous)
      if (const auto gap = gapBetween(kind, *previous, row))
        made.notices.push_back({RegisterNotice::About::gap, *gap});
    previous = &row;
  }
  made.totals = totalsOf(sums, table, kind.side);
  return made;
}

}  // namespace tarvex
