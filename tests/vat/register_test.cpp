#include "vat/register.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <utility>

#include "common/text.h"

using namespace tarvex;

namespace {

VatTable table() {
  VatTable table;
  table[0] = {"22", 22, 0, "Aliquota 22% ordinaria"};
  table[1] = {"10", 10, 0, "Aliquota 10%"};
  table[24] = {"N8A", 0, 0, "Art. 8 a-b esportazioni"};
  return table;
}

RegisterRow row(long posted, std::string numero, double imponibile, std::string codiva, double aliquota,
                double imposta, std::string conto = "00060", std::string datadoc = "15/01/2003") {
  RegisterRow row;
  row.posted = posted;
  row.numero = std::move(numero);
  row.datareg = "16/01/2003";
  row.datadoc = std::move(datadoc);
  row.conto = std::move(conto);
  row.ragsoc = "Città & Società di " + row.conto;
  row.imponibile = imponibile;
  row.codiva = std::move(codiva);
  row.aliquota = aliquota;
  row.imposta = imposta;
  return row;
}

Register make(std::vector<RegisterRow> rows) {
  return makeRegister(kSalesRegister, std::move(rows), table());
}

std::vector<std::string> texts(const Register& content) {
  std::vector<std::string> texts;
  for (const auto& notice : content.notices) texts.push_back(notice.text);
  return texts;
}

RegisterPage january() { return {.registro = "1", .month = "Gennaio", .year = "2003", .letterhead = {}}; }

using Lines = std::vector<std::string>;
std::vector<Lines> printed(const Register& content, const RegisterPage& page, int pageLines = 60) {
  const auto report = layOut(kSalesRegister, content, page, {.size = 10, .pageLines = pageLines});
  std::vector<Lines> pages;
  for (const auto& sheet : report->pages()) pages.push_back(report->textOf(sheet));
  return pages;
}

}  // namespace

TEST_CASE("rows stand by number, whatever their dates, and within a number as they were posted") {
  auto late = row(3, "00001", 1, "22", 22, 0.22);
  late.datareg = "31/01/2003";
  const Register content = make({row(10, "00002", 20, "10", 10, 2), row(9, "00002", 10, "22", 22, 2.2),
                                 row(2, "00003", 3, "22", 22, 0.66), late});
  std::vector<double> order;
  for (const auto& r : content.rows) order.push_back(r.imponibile);
  CHECK(order == std::vector<double>{1, 10, 20, 3});
  CHECK(content.rows[2].further);
  CHECK(content.notices.empty());
}

TEST_CASE("a number that stands on two documents is two documents") {
  const Register content =
      make({row(1, "00001", 10, "22", 22, 2.2), row(2, "00001", -5, "22", 22, -1.1, "00061"),
            row(3, "00001", -1, "22", 22, -0.22, "00061", "20/01/2003")});
  CHECK_FALSE(content.rows[1].further);
  CHECK_FALSE(content.rows[2].further);
}

TEST_CASE("gaps are told by value, between the numbers that are there") {
  const auto gaps = [](std::initializer_list<const char*> numbers) {
    std::vector<RegisterRow> rows;
    for (const char* number : numbers)
      rows.push_back(row(static_cast<long>(rows.size()), number, 1, "22", 22, 0.22));
    return texts(make(rows));
  };
  using Texts = std::vector<std::string>;
  CHECK(gaps({"00003", "00007"}) == Texts{"Salto fattura dal numero:4-6"});  // none before the first one
  CHECK(gaps({"00001", "00003"}) == Texts{"Salto fattura dal numero:2-2"});
  CHECK(gaps({"00009", "00010", "00010", "00011"}).empty());
  CHECK(gaps({"00099", "00101", "00201"}) ==
        Texts{"Salto fattura dal numero:100-100", "Salto fattura dal numero:102-200"});
  CHECK(gaps({"", "99999999999999999999999999"}).size() == 1);
  CHECK(gaps({"00005"}).empty());
  CHECK(gaps({}).empty());
}

TEST_CASE("a code that was removed is told row by row, before the gap, and stands in no total") {
  const Register content = make({row(1, "00001", 100, "22", 22, 22), row(2, "00003", 50, "4", 4, 2),
                                 row(3, "00003", 70, "", 4, 2.8), row(4, "00004", 30, "4", 4, 1.2)});
  const std::string tail =
      " non risulta più registrato nella tabella iva. Il registro non sarà stampato correttamente.";
  CHECK(texts(content) == std::vector<std::string>{"Il codice iva 4" + tail, "Salto fattura dal numero:2-2",
                                                   "Il codice iva " + tail, "Il codice iva 4" + tail});
  CHECK(content.notices[0].about == RegisterNotice::About::missingCode);
  CHECK(content.notices[1].about == RegisterNotice::About::gap);
  CHECK(sumOf(content.totals).sum == VatSum{100, 22});
  CHECK(content.rows[1].note == "4");
}

TEST_CASE("totals come by slot, the last one too, without those of no amount") {
  const Register content = make({row(1, "00001", 0.1, "22", 22, 0.02), row(2, "00002", 500, "N8A", 0, 0),
                                 row(3, "00003", 7, "10", 10, 0.7), row(4, "00004", 0.2, "22", 22, 0.04),
                                 row(5, "00005", -7, "10", 10, -0.7)});
  REQUIRE(content.totals.size() == 2);
  CHECK(content.totals[0].label == "22 Aliquota 22% o");
  CHECK(content.totals[0].sum.imponibile == 0.3);
  CHECK(content.totals[0].sum.imposta == 0.06);
  CHECK(content.totals[1].label == "0 Art. 8 a-b espo");
  CHECK(content.rows[1].note == "Art. 8 a-b esportazioni");
  CHECK(sumOf(content.totals).sum.imponibile == 500.3);
}

TEST_CASE("the totals are the rows' own cents, however many rows there are") {
  std::mt19937 random(7);
  std::vector<RegisterRow> rows;
  std::int64_t taxableCents = 0, taxCents = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::int64_t taxable = static_cast<std::int64_t>(random() % 5'000'000) - 500'000,
                       tax = taxable * 22 / 100;
    taxableCents += taxable;
    taxCents += tax;
    rows.push_back(row(i, common::zeroFill(i + 1, 5), static_cast<double>(taxable) / 100, i % 3 ? "22" : "10",
                       22, static_cast<double>(tax) / 100));
  }
  const Register content = make(rows);
  CHECK(sumOf(content.totals).sum ==
        VatSum{static_cast<double>(taxableCents) / 100, static_cast<double>(taxCents) / 100});
}

TEST_CASE("the register on paper") {
  auto undated = row(2, "00002", 1234567.8, "22", 22, 271604.92, "00061");
  undated.datareg.clear();
  const auto pages =
      printed(make({row(1, "00001", 100, "22", 22, 22), undated, row(3, "00002", 50, "N8A", 0, 0, "00061")}),
              january());
  REQUIRE(pages.size() == 1);
  const Lines expected{"                                 REGISTRO IVA VENDITE 1   Mese: Gennaio  Anno: 2003",
                       "                                                                                     "
                       "                        Pagina 1",
                       "Data reg.   Fatt. Data               Ragione sociale                Imponibile Aliq. "
                       "  Imposta      Totale Note",
                       std::string(117, '-'),
                       "16/01/2003  00001 15/01/2003 Città & Società di 00060                   100,00 22    "
                       "    22,00      122,00",
                       "            00002 15/01/2003 Città & Società di 00061               1234567,80 22    "
                       "271604,92  1506172,72",
                       "                                                                         50,00 0     "
                       "     0,00       50,00 Art. 8 a-b",
                       "",
                       "T O T A L I",
                       "Aliquota             Imponibile       Imposta",
                       "22 Aliquota 22% o  1.234.667,80    271.626,92",
                       "0 Art. 8 a-b espo         50,00          0,00",
                       "---------------------------------------------",
                       "Totale             1.234.717,80    271.626,92"};
  CHECK(pages[0] == expected);
}

TEST_CASE("a register with no rows has headings and empty totals") {
  auto page = january();
  page.letterhead = {2, "ALFA S.R.L.", "01234567897"};
  const auto pages = printed(make({}), page);
  REQUIRE(pages.size() == 1);
  const Lines& lines = pages[0];
  REQUIRE(lines.size() == 13);
  CHECK(lines[1].empty());
  CHECK(common::trim(lines[2]) == "ALFA S.R.L.");
  CHECK(common::trim(lines[3]) == "P.IVA 01234567897");
  CHECK(lines[9] == "T O T A L I");
  CHECK(lines[12] == "Totale                     0,00          0,00");
}

TEST_CASE("pages repeat the headings, count on, and keep the totals whole") {
  std::vector<RegisterRow> rows;
  for (int i = 1; i <= 45; ++i) rows.push_back(row(i, common::zeroFill(i, 5), 1, "22", 22, 0.22));
  auto page = january();
  page.letterhead.blankLines = 1;
  const auto pages = printed(make(rows), page, 25);  // 20 rows a page, 5 on the third, totals of 6
  REQUIRE(pages.size() == 3);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    CHECK(pages[i].size() <= 25);
    CHECK(pages[i][0].empty());
    CHECK(common::trim(pages[i][2]) == "Pagina " + std::to_string(i + 1));
    CHECK(pages[i][3].starts_with("Data reg."));
  }
  rows.resize(36);
  const auto moved = printed(make(rows), page, 25);  // four lines are left under the rows
  REQUIRE(moved.size() == 3);
  CHECK(moved[2][6] == "T O T A L I");
  CHECK(printed(make(rows), page, 3).size() < 100);  // a page shorter than its headings: still an end
}
