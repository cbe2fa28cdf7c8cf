#include "ledger/books/book_rules.h"

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/books/journal_walk.h"
#include "vat/settlement.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

constexpr std::string_view kRegisters = "registers and settlement hold every VAT row";
constexpr std::string_view kJournal = "the journal prints every row";

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
  violations.push_back({kRegisters,
                        std::string(side.kind.name) + ": the rows come to " +
                            common::toText(taxOf(made.rows)) + ", " + std::string(book) + " to " +
                            common::toText(printed),
                        strays(side, made.rows), difference});
}

}  // namespace

std::vector<Violation> checkRegisters(Session& session) {
  const VatPeriod year{VatPeriod::Length::year, 1};
  const auto table = loadVatTable(session);
  auto rows = table ? readSettlementRows(session, year, {}, false) : std::nullopt;
  if (!rows) return {{kRegisters, "the VAT rows cannot be read", {}, 0}};
  SettlementTerms terms;
  terms.period = year;
  const Settlement settlement = settle(std::move(terms), *rows, *table);
  std::vector<Violation> violations;
  for (const Side& side : kSides) {
    const Register made = makeRegister(side.kind, (*rows).*side.rows, *table);
    compare(side, "the register", made, sumOf(made.totals).sum.imposta, violations);
    compare(side, "the settlement", made, sumOf(settlement.*side.totals).sum.imposta, violations);
  }
  return violations;
}

std::vector<Violation> checkJournalBook(Session& session) {
  std::vector<Violation> violations;
  JournalWalk walk = JournalWalk::byNumber(session);
  while (const rec::mc* row = walk.next())
    if (!common::isDateOf(dateOf(row->datareg), session.WorkYear))
      violations.push_back({kJournal,
                            "row " + walk.key() + " is registered on \"" + row->datareg + "\"",
                            {"mc " + walk.key()},
                            common::roundBalance(row->dare - row->avere)});
  if (!walk.isWhole()) violations.push_back({kJournal, "the journal cannot be read", {}, 0});
  return violations;
}

}  // namespace tarvex
