// What a definitive print of the journal keeps, and when it keeps nothing.
#include "ledger/drawn_books.h"

using test::At;
using test::Books;

namespace {

struct State {
  std::string until;
  int row, page;
  bool operator==(const State&) const = default;
};

State stateOf(Books& books) {
  auto& pr = books.session().pr;
  const bool printed = pr.search(0, "giornale") == store::kOk;
  const State state{printed ? pr.B.testo : std::string(), printed ? pr.B.valore : 0, 0};
  return {state.until, state.row, books.counter("paggiorn")};
}

// A year of entries, and the form with everything asked for.
struct Print {
  explicit Print(Books& books) : at(books, "STGC") {
    at.hands.check("Check1", true);
    at.hands.check("Check4", true);
    at.hands.set("text2", "31/12/2003");
  }
  void press() { at.hands.press("ok"); }
  At at;
};

}  // namespace

TEST_CASE("a definitive journal is kept when it was shown or printed whole, and in no other case") {
  Books books;
  test::DrawnBooks(books, 5).post(90);
  const State before = stateOf(books);
  Print print(books);

  books.desk().stops = true;  // in the middle
  print.press();
  CHECK(books.desk().previews.empty());
  CHECK(stateOf(books) == before);
  books.desk().stops = false;

  print.at.hands.check("Check2", false);
  books.desk().noPrinter = true;
  print.press();
  CHECK(books.desk().prints.empty());
  CHECK(stateOf(books) == before);
  books.desk().noPrinter = false;

  print.press();
  REQUIRE(books.desk().prints.size() == 1);
  const State after = stateOf(books);
  CHECK(after.until == "20031231");
  CHECK(after.row == static_cast<int>(books.all<rec::mc>().size()));
  CHECK(after.page == static_cast<int>(books.desk().prints.back()->pages().size()));
  CHECK(print.at.hands.text("text3") == std::to_string(after.row + 1));
}

TEST_CASE("a journal that is only looked at is laid out page by page, and keeps nothing") {
  Books books;
  test::DrawnBooks(books, 6).post(150);
  Print print(books);
  print.at.hands.check("Check1", false);
  print.press();
  REQUIRE(books.desk().previews.size() == 1);
  const ui::Report& report = *books.desk().previews.back();
  CHECK_FALSE(report.isWhole());
  const std::size_t first = report.pages().size();
  report.finish();
  CHECK(report.pages().size() > first);
  CHECK(report.isWhole());
  CHECK(stateOf(books) == State{"", 0, books.counter("paggiorn")});
}
