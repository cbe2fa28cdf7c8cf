// Entries, revisions and removals drawn from a seed, against what they must come to.
#include <array>
#include <random>
#include <set>

#include "common/amount.h"
#include "common/date.h"
#include "ledger/books.h"
#include "ledger/collections.h"
#include "ledger/entry_dues.h"
#include "ledger/invoice_entry.h"
#include "ledger/movement_entry.h"
#include "ledger/removal.h"

using namespace tarvex;
using test::Books;

namespace {

#ifdef TARVEX_LONG_TESTS
constexpr int kSteps = 10'000;
#else
constexpr int kSteps = 600;
#endif

class Play {
 public:
  explicit Play(unsigned seed) : generator_(seed) {
    for (const char* code : {"00051", "00054"}) {
      auto& pc = books.session().pc;
      REQUIRE(pc.search(0, code) == store::kOk);
      pc.A = pc.B;
      pc.A.pagamento = "Bonifico 30/60 gg. f.m.";
      pc.put(code, store::Put::rewrite);
      pc.flush();
    }
  }

  void step() {
    const int act = below(10);
    if (act < 6 || standing_.empty()) return post({});
    if (act < 7) return collect();
    const auto at = static_cast<std::size_t>(below(static_cast<int>(standing_.size())));
    const std::string nummov = standing_[at];
    if (act < 9) {
      post(nummov);
      standing_.erase(standing_.begin() + static_cast<long>(at));
    } else {
      CHECK(removeEntry(books.session(), nummov));
      standing_.erase(standing_.begin() + static_cast<long>(at));
    }
  }

  std::size_t standing() const { return standing_.size(); }
  std::string take() {
    const std::string last = standing_.back();
    standing_.pop_back();
    return last;
  }

  Books books;

 private:
  int below(int limit) { return static_cast<int>(generator_() % static_cast<unsigned>(limit)); }
  double amount() { return (below(2'000'000) - 200'000) / 100.0; }

  void post(const std::string& replaces) {
    DueDates dues;
    const Entry entry = below(4) == 0 ? movement() : document(dues);
    post(entry, {.replaces = replaces, .dues = dues});
  }

  void post(const Entry& entry, const PostingOptions& options) {
    const int before = books.counter("mc");
    CHECK(postEntry(books.session(), entry, options) == Posted::done);
    standing_.push_back(std::to_string(before + 1));
  }

  // Of an instalment that stands open, now and then in a revision of an older entry, with an allowance.
  void collect() {
    const bool payment = below(2) == 0;
    const CollectionKind kind{"", "", payment};
    Collection one{"20/10/2003",
                   "20/10/2003",
                   std::to_string(++number_),
                   "Saldo",
                   payment ? "00054" : "00051",
                   "00056",
                   0,
                   {}};
    for (const DueDate& due :
         dueDatesOf(books.session(), payment ? DueLedger::sf : DueLedger::sd, one.conto)) {
      if (!isOpen(due) || below(3) == 0) continue;
      one.rows.push_back({due.numero, common::SlashDate(common::KeyToDate(due.datafatt)),
                          below(2) == 0 ? std::string() : common::SlashDate(common::KeyToDate(due.scadenza)),
                          common::roundBalance(due.importo - 1), below(2) == 0 ? 1.0 : 0.0});
      one.importo = common::roundBalance(one.importo + one.rows.back().importo);
      if (one.rows.size() == 10) break;
    }
    if (one.importo == 0) return;
    post(collectionEntry(kind, one), {.also = [&] { closeInstalments(books.session(), kind, one); }});
  }

  Entry movement() {
    Movement one{"15/01/2003", "15/01/2003", std::to_string(++number_), "Giro", {}};
    const double moved = amount();
    one.lines = {{"00052", "Merci c/vendite", "", moved, 0}, {"00051", "BIANCHI SNC", " x", 0, moved}};
    return movementEntry(one);
  }

  Entry document(DueDates& dues) {
    constexpr std::array<InvoiceKind, 5> kKinds{{{"mcfv", "", "fv", VatSide::sales, false, false, false},
                                                 {"mccv", "", "cv", VatSide::sales, true, false, false},
                                                 {"MCFA", "", "fa", VatSide::purchases, false, false, false},
                                                 {"mcca", "", "ca", VatSide::purchases, true, false, false},
                                                 {"mcco", "", "co", VatSide::receipts, false, false, false}}};
    const InvoiceKind& kind = kKinds[static_cast<std::size_t>(below(5))];
    InvoiceDocument one;
    one.datareg = one.datadoc = "15/0" + std::to_string(below(9) + 1) + "/2003";
    one.numero = one.protocollo = std::to_string(++number_);
    one.registro = std::to_string(below(9) + 1);
    one.conto = kind.side == VatSide::purchases ? "00054" : "00051";
    for (int rows = below(9) + 1; rows > 0; --rows) {
      InvoiceRow row;
      row.contropartita = below(2) == 0 ? "00053" : "00055";
      row.imponibile = amount();
      row.codiva = "22";
      row.imposta = common::vatOf(row.imponibile, 22);
      row.deductible = below(3) != 0;
      one.importo += row.imponibile + row.imposta;
      one.rows.push_back(row);
    }
    one.importo = common::roundBalance(one.importo);
    dues = fallingDue(books.session(), kind, one);
    return invoiceEntry(kind, one);
  }

  std::mt19937 generator_;
  int number_ = 0;
  std::vector<std::string> standing_;  // numbers of the entries that stand
};

}  // namespace

TEST_CASE(
    "random entries, collections, revisions and removals leave whole books, and removing all of them empty "
    "ones") {
  for (const unsigned seed : {1U, 2U}) {
    CAPTURE(seed);
    Play play(seed);
    for (int i = 0; i < kSteps; ++i) play.step();
    play.books.checkWhole();
    std::set<std::string> numbers;
    for (const rec::mc& line : play.books.all<rec::mc>()) numbers.insert(line.nummov);
    CHECK(numbers.size() == play.standing());
    while (play.standing() > 0) CHECK(removeEntry(play.books.session(), play.take()));
    auto left = play.books.contents();
    for (const char* archive : {"mc", "tt", "iv", "ia", "ic", "sd", "sf"}) CHECK(left[archive].empty());
    for (const char* voice : {"00001", "00005", "00012", "00051", "00054"})
      CHECK(common::roundBalance(play.books.saldo(voice)) == 0);
    play.books.checkWhole();
  }
}
