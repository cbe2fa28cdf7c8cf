#include "ui/report.h"

#include <doctest/doctest.h>

#include <string>

#include "common/amount.h"

namespace {

struct Receipt {
  int number;
  double amount;
  std::string city;
};

constexpr ui::Column<Receipt> kColumns[] = {
    {"N.", 1, 3, common::Align::right, [](const Receipt& r) { return std::to_string(r.number); }},
    {"Importo", 5, 9, common::Align::right, [](const Receipt& r) { return common::toText(r.amount); }},
    {"Piazza", 16, 6, common::Align::left, [](const Receipt& r) { return r.city; }},
};
static_assert(ui::ordered(kColumns));

constexpr ui::Column<Receipt> kOverlapping[] = {{"", 1, 3, common::Align::left, nullptr},
                                                {"", 3, 1, common::Align::left, nullptr}};
static_assert(!ui::ordered(kOverlapping));

}  // namespace

TEST_CASE("columns stand where they are declared") {
  CHECK(ui::heading(kColumns) == " N.   Importo  Piazza");
  CHECK(ui::line(kColumns, {1, 1234.5, "Forlì"}) == "  1  1.234,50  Forlì ");
  CHECK(ui::line(kColumns, {2, 9, "Città di Castello"}) == "  2      9,00  Città ");
  // a figure is never cut: it takes up the gaps before and behind it, then the rest moves
  CHECK(ui::line(kColumns, {3, 12345678.5, "Forlì"}) == "  3 12.345.678,50 Forlì ");
  CHECK(ui::line(kColumns, {4, 123456.5, "Forlì"}) == "  4 123.456,50 Forlì ");
  std::string line = "Forlì";
  ui::place(line, 9, 4, common::Align::right, "123,50");
  CHECK(line == "Forlì 123,50");
}

TEST_CASE("a page holds the lines of the setup") {
  ui::Report report("Registro", {"Courier New", 10, 3, true});
  report.setBold(true);
  report.line("Titolo  ");
  report.setBold(false);
  report.line();
  CHECK(report.left() == 1);
  report.line("  a\xFF\n");
  CHECK(report.left() == 0);
  report.line("seconda pagina");
  report.newPage();
  report.setSize(20);
  report.line("grande");
  report.line("sotto");
  REQUIRE(report.pages().size() == 3);
  CHECK(report.text() == "Titolo\n\n  a\xEF\xBF\xBD\n\fseconda pagina\n\fgrande\nsotto\n\f");
  CHECK(report.textOf(report.pages()[0]).size() == 3);
  CHECK(report.pages()[0].line(0).bold);
  CHECK_FALSE(report.pages()[0].line(1).bold);
  CHECK(report.pages()[1].line(0).top == 0);
  CHECK(report.pages()[2].line(1).top == doctest::Approx(2 * report.pages()[0].line(1).top));
  CHECK(ui::Report("x", {"Courier New", 10, 0, false}).left() == 60);
}
