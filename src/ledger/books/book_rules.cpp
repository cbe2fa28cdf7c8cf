#include "ledger/books/book_rules.h"

#include <utility>

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/books/journal_walk.h"
#include "vat/settlement.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

struct Side {
  const RegisterKind& kind;
  std::string_view archive;
  std::vector<RegisterRow> SettlementRows::*rows;
  std::vector<VatTotal> Settlement::*totals;
};
const Side kSides[] = {
    {kSalesRegister, "iv", &SettlementRows::sales, &Settlement::sales},
    {kPurchaseRegister, "ia", &SettlementRows::purchases, &Settlement::purchases},
    {kReceiptsRegister, "ic", &SettlementRows::receipts, &Settlement::receipts},
};

double taxOf(const std::vector<RegisterRow>& rows) {
  VatSum sum;
  for (const RegisterRow& row : rows) sum.add(0, row.imposta);
  return sum.imposta;
}

// Rows that stand in no total, by name; none when only the sums differ.
std::vector<std::string> strays(const Side& side, const std::vector<RegisterRow>& rows) {
  std::vector<std::string> records;
  for (const RegisterRow& row : rows)
    if (row.slot < 0) records.push_back(std::string(side.archive) + " " + common::numberText(row.posted));
  return records;
}

void compare(const Side& side, std::string_view book, const Register& made, double printed,
             std::vector<Violation>& violations) {
  const double difference = common::roundBalance(taxOf(made.rows) - printed);
  if (difference == 0) return;
  violations.push_back({{},
                        std::string(side.kind.name) + ": le righe fanno " + common::toText(taxOf(made.rows)) +
                            ", " + std::string(book) + " " + common::toText(printed),
                        strays(side, made.rows),
                        difference});
}

std::vector<Violation> checkRegisters(Session& session) {
  const VatPeriod year{VatPeriod::Length::year, 1};
  const auto table = loadVatTable(session);
  auto rows = table ? readSettlementRows(session, year, {}, false) : std::nullopt;
  if (!rows) return {{{}, "le righe iva non si leggono", {}, 0}};
  SettlementTerms terms;
  terms.period = year;
  const Settlement settlement = settle(std::move(terms), *rows, *table);
  std::vector<Violation> violations;
  for (const Side& side : kSides) {
    const Register made = makeRegister(side.kind, (*rows).*side.rows, *table);
    compare(side, "il registro", made, sumOf(made.totals).sum.imposta, violations);
    compare(side, "la liquidazione", made, sumOf(settlement.*side.totals).sum.imposta, violations);
  }
  return violations;
}

std::vector<Violation> checkJournalBook(Session& session) {
  std::vector<Violation> violations;
  JournalWalk walk = JournalWalk::byNumber(session);
  while (const rec::mc* row = walk.next())
    if (!common::isDate(dateOf(row->datareg)))
      violations.push_back({{},
                            "la riga " + walk.key() + " è registrata il \"" + row->datareg + "\"",
                            {"mc " + walk.key()},
                            common::roundBalance(row->dare - row->avere)});
  if (!walk.isWhole()) violations.push_back({{}, "la prima nota non si legge", {}, 0});
  return violations;
}

constexpr Rule kRules[] = {
    {"registers and settlement hold every VAT row", "Registri e liquidazione contano ogni riga iva",
     "Registrare di nuovo il codice iva che manca", checkRegisters},
    {"the journal prints every row", "Il giornale stampa ogni riga", "Prima nota, Revisione",
     checkJournalBook},
};

}  // namespace

std::span<const Rule> bookRules() { return kRules; }

}  // namespace tarvex
