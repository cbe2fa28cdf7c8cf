// Books drawn from a seed, and everything that is printed of them: each total equals the others to the cent.
#include <cmath>
#include <set>
#include <sstream>

#include "ledger/books/account_card.h"
#include "ledger/books/general_journal.h"
#include "ledger/drawn_books.h"
#include "ledger/removal.h"
#include "vat/settlement.h"
#include "vat/settlement_state.h"
#include "yearend/balance.h"

using namespace tarvex;
using test::Books;

namespace {

#ifdef TARVEX_LONG_TESTS
constexpr unsigned kSeeds = 5000;
#else
constexpr unsigned kSeeds = 60;
#endif

long cents(double amount) { return std::lround(amount * 100); }

long journalSide(Books& books, double rec::mc::*side) {
  long sum = 0;
  for (const rec::mc& row : books.all<rec::mc>()) sum += cents(row.*side);
  return sum;
}

struct PrintedJournal {
  std::vector<std::string> rows;  // the lines between the heads and the totals
  long dare = 0, avere = 0;       // of the year, as printed
  long lastRow = 0;
};

PrintedJournal printJournal(Books& books, const DateRange& range, long firstRow) {
  const auto made = layOutJournal(books.session(), {range, firstRow, 1, {}}, {.pageLines = 40});
  made.report->finish();
  REQUIRE(made.journal->isWhole());
  PrintedJournal printed{.rows = {}, .lastRow = made.journal->lastRow()};
  for (const ui::Page& page : made.report->pages()) {
    const auto lines = made.report->textOf(page);
    for (std::size_t i = 9; i < lines.size(); ++i) {  // below the head
      if (lines[i].starts_with("Totali progressivi")) {
        printed.dare = cents(common::toNumber(common::trim(lines[i].substr(27, 15))));
        printed.avere = cents(common::toNumber(common::trim(lines[i].substr(52, 15))));
      }
      if (!lines[i].empty() && !lines[i].starts_with("Totali") && !lines[i].starts_with("---"))
        printed.rows.push_back(lines[i]);
    }
  }
  return printed;
}

// The journal printed at once, and in two prints of which the second goes on where the first has ended.
void checkJournal(Books& books, const std::string& day) {
  const auto whole = printJournal(books, {"20030101", "20031231"}, 1);
  CHECK(whole.dare == journalSide(books, &rec::mc::dare));
  CHECK(whole.avere == journalSide(books, &rec::mc::avere));
  auto first = printJournal(books, {"20030101", day}, 1);
  const auto second = printJournal(books, {day + "~", "20031231"}, first.lastRow + 1);
  first.rows.insert(first.rows.end(), second.rows.begin(), second.rows.end());
  CHECK(first.rows == whole.rows);
  CHECK(second.dare == whole.dare);
  CHECK(second.lastRow == whole.lastRow);
}

struct Taxes {
  long sales = 0, purchases = 0, deductible = 0, receipts = 0;
  void add(const Taxes& other) {
    sales += other.sales;
    purchases += other.purchases;
    deductible += other.deductible;
    receipts += other.receipts;
  }
  bool operator==(const Taxes&) const = default;
};

long taxOf(const std::vector<VatTotal>& totals) { return cents(sumOf(totals).sum.imposta); }

// What the nine registers of a month print.
Taxes registersOf(Session& session, int month, const VatTable& table) {
  const std::string name = common::zeroFill(month, 2);
  const auto made = [&](const RegisterKind& kind) {
    auto rows = kind.read(session, {"", name, name, false});
    REQUIRE(rows);
    return makeRegister(kind, std::move(*rows), table);
  };
  const Register purchases = made(kPurchaseRegister);
  return {taxOf(made(kSalesRegister).totals), taxOf(purchases.totals),
          taxOf(ofKind(purchases.totals, VatKind::normal)), taxOf(made(kReceiptsRegister).totals)};
}

Settlement settlementOf(Session& session, VatPeriod period, double previous, const VatTable& table) {
  auto rows = readSettlementRows(session, period, {}, false);
  REQUIRE(rows);
  SettlementTerms terms;
  terms.period = period;
  terms.previous = previous;
  return settle(std::move(terms), *rows, table);
}

Taxes taxesOf(const Settlement& settlement) {
  return {cents(settlement.salesVat), taxOf(settlement.purchases), cents(settlement.purchaseVat),
          cents(settlement.receiptsVat)};
}

template <class R>
long rowsOf(Books& books) {
  long sum = 0;
  for (const R& row : books.all<R>()) sum += cents(row.imposta);
  return sum;
}

// Rows, registers, settlements of months and year, and the accounts of VAT.
void checkVat(Books& books) {
  const auto table = loadVatTable(books.session());
  REQUIRE(table);
  Taxes year;
  double carried = 0;
  long owed = 0;  // paid and carried together
  for (int month = 1; month <= 12; ++month) {
    const Taxes printed = registersOf(books.session(), month, *table);
    const Settlement settled =
        settlementOf(books.session(), {VatPeriod::Length::month, month}, carried, *table);
    CHECK(taxesOf(settled) == printed);
    CHECK(cents(settled.result) == cents(carried) + printed.deductible - printed.sales - printed.receipts);
    carried = isCarried(settled) ? settled.result : 0;
    if (!isCarried(settled)) owed += cents(settled.due());
    year.add(printed);
  }
  const Settlement whole = settlementOf(books.session(), {VatPeriod::Length::year, 1}, 0, *table);
  CHECK(taxesOf(whole) == year);
  CHECK(cents(whole.result) == cents(carried) - owed);
  CHECK(year.sales == rowsOf<rec::iv>(books));
  CHECK(year.purchases == rowsOf<rec::ia>(books));
  CHECK(year.receipts == rowsOf<rec::ic>(books));
  CHECK(year.sales == -cents(books.saldo("00012")));
  CHECK(year.deductible == cents(books.saldo("00011")));
}

// The balance of the chart is that of the journal, and both sections show one result.
void checkBalance(Books& books) {
  const auto voices = readChart(books.session());
  REQUIRE(voices);
  const auto balanceOf = [&](const BalanceSource& source) {
    const auto accounts = readAccounts(books.session(), *voices, source);
    REQUIRE(accounts);
    return makeBalance(*accounts, *voices);
  };
  const Balance chart = balanceOf({}), journal = balanceOf({DateRange{"20030101", "20031231"}});
  for (const BalanceSide side : kBalanceSides) {
    CHECK(chart.half(side).total == journal.half(side).total);
    CHECK(chart.half(side).lines.size() == journal.half(side).lines.size());
  }
  CHECK(chart.missing(BalanceSide::liabilities) == chart.missing(BalanceSide::costs));
  CHECK(chart.missing(BalanceSide::assets) == chart.missing(BalanceSide::revenues));
}

void checkCards(Books& books) {
  for (const char* code : {"00051", "00052", "00054", "00056", "00012"}) {
    const auto card = readCard(books.session(), code, {"20030401", "20031231"});
    REQUIRE(card);
    CHECK(cents(card->closing()) == cents(books.saldo(code)));
    CHECK((card->rows.empty() || card->rows.back().saldo == card->closing()));
  }
}

// A company whose voices stand in the balance.
std::unique_ptr<Books> makeBooks() {
  auto books = std::make_unique<Books>();
  auto& pc = books->session().pc;
  for (const char* code : {"00051", "00052", "00053", "00054", "00055", "00056"}) {
    REQUIRE(pc.search(0, code) == store::kOk);
    pc.A = pc.B;
    pc.A.natura = pc.A.mastro == "00003" || pc.A.mastro == "00004" ? "e" : "p";
    pc.put(code, store::Put::rewrite);
  }
  pc.flush();
  return books;
}

void removeAll(Books& books) {
  std::set<std::string> entries;
  for (const rec::mc& row : books.all<rec::mc>()) entries.insert(row.nummov);
  for (const std::string& entry : entries) CHECK(removeEntry(books.session(), entry));
}

}  // namespace

TEST_CASE(
    "what is printed of random books agrees to the cent: rows, registers, settlement, journal, balance") {
  auto books = makeBooks();
  for (unsigned seed = 1; seed <= kSeeds; ++seed) {
    CAPTURE(seed);
    if (seed % 100 == 0) books = makeBooks();
    test::DrawnBooks drawn(*books, seed);
    drawn.post(5 + drawn.below(20));
    checkJournal(*books, "2003" + common::zeroFill(drawn.below(12) + 1, 2) + "15");
    checkVat(*books);
    checkBalance(*books);
    checkCards(*books);
    if (seed % 20 == 0) books->checkWhole();
    removeAll(*books);
  }
}
