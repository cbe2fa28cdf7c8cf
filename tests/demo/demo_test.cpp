// The demonstration is a quarter of a company through the real forms: what it prints must be what it posted.
#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "common/amount.h"
#include "common/text.h"
#include "demo/company.h"
#include "demo/play.h"
#include "duedates/due_ledgers.h"
#include "session/station.h"
#include "tools/scratch.h"

namespace {

struct Sums {
  long imponibile = 0, imposta = 0;  // cents
  bool operator==(const Sums&) const = default;
};

long cents(double amount) { return std::lround(amount * 100); }

// The last line of figures of a printed register: the sums under its totals.
Sums printedTotal(const std::filesystem::path& path) {
  std::ifstream file(path);
  Sums sums;
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string label, first, second, more;
    if (words >> label >> first >> second && label == "Totale" && !(words >> more))
      sums = {cents(common::toNumber(first)), cents(common::toNumber(second))};
  }
  return sums;
}

// The words of a text file, or of a PDF file by way of the reader.
std::vector<std::string> wordsOf(const std::filesystem::path& path) {
  const bool paper = path.extension() == ".pdf";
  const std::filesystem::path text = paper ? path.string() + ".text" : path.string();
  if (paper) {
    const std::string command = PDFTOTEXT " -layout '" + path.string() + "' '" + text.string() + "'";
    REQUIRE(std::system(command.c_str()) == 0);
  }
  std::ifstream file(text);
  std::vector<std::string> words{std::istream_iterator<std::string>(file), {}};
  REQUIRE_FALSE(words.empty());
  return words;
}

// By the number of the print: the months of register 1, then those of register 2.
template <class R>
std::map<std::string, Sums> posted(tarvex::Session& session, const std::string& name) {
  std::map<std::string, Sums> months;
  tarvex::OpenArchive<R> rows(session, 0, 0);
  rows->bof(0);
  while (rows->next(0) == store::kOk) {
    const int print = std::stoi(rows->B.mese) + 3 * (std::stoi(rows->B.registro) - 1);
    Sums& month = months[name + std::to_string(print) + ".txt"];
    month.imponibile += cents(rows->B.imponibile);
    month.imposta += cents(rows->B.imposta);
  }
  return months;
}

// What the documents drawn come to, credit notes taken off.
long drawn(const std::vector<demo::Invoice>& documents) {
  long sum = 0;
  for (const demo::Invoice& one : documents) sum += cents(one.creditNote ? -one.total() : one.total());
  return sum;
}

long total(const std::map<std::string, Sums>& months) {
  long sum = 0;
  for (const auto& [print, month] : months) sum += month.imponibile + month.imposta;
  return sum;
}

}  // namespace

TEST_CASE("the demo's registers agree to the cent with its rows, and its books are whole") {
  const test::Scratch scratch;
  std::size_t steps = 0, allSteps = 0;
  const demo::Played played = demo::play({.archives = scratch.path() / "archivi",
                                          .prints = scratch.path(),
                                          .pdfProgram = TARVEX_BINARY_DIR "/bin/tarvex-pdf",
                                          .offered = TARVEX_SOURCE_DIR "/data",
                                          .seed = 7,
                                          .onStep = [&](std::size_t done, std::size_t of) {
                                            CHECK(done == ++steps);
                                            allSteps = of;
                                          }});
  CHECK(steps == allSteps);
  for (const std::string& fault : played.faults) FAIL_CHECK(fault);
  CHECK(played.invoices == 192);
  CHECK(played.receipts == 75);
  REQUIRE(played.printed.size() == 52);

  test::Station station(scratch.path() / "archivi", "31/03/2026");
  const demo::Company company = demo::drawCompany(7);
  REQUIRE(station.start([&](ui::Form& scelta) {
    const auto& names = Hands(scelta).at<ui::Choice>("Combo1").items();
    CHECK(std::ranges::count(names, company.ragsoc + " (prova)") == 1);
    test::choose(company.ragsoc, company.year)(scelta);
  }));
  const auto sales = posted<rec::iv>(station.session, "registro-iva-vendite-");
  const auto purchases = posted<rec::ia>(station.session, "registro-iva-acquisti-");
  const auto receipts = posted<rec::ic>(station.session, "registro-iva-corrispettivi-");
  auto all = sales;
  all.insert(purchases.begin(), purchases.end());
  all.insert(receipts.begin(), receipts.end());
  for (const auto& path : played.printed) {
    CAPTURE(path.string());
    if (path.extension() == ".pdf")
      CHECK(wordsOf(path) == wordsOf(std::filesystem::path(path).replace_extension(".txt")));
    else if (path.filename().string().starts_with("registro"))
      CHECK(printedTotal(path) == all[path.filename().string()]);
  }
  CHECK(total(sales) == drawn(company.invoices));
  CHECK(total(purchases) == drawn(company.purchases));
  long taken = 0;
  for (const demo::Receipt& receipt : company.receipts) taken += cents(receipt.total());
  CHECK(total(receipts) == taken);
  // What was collected and paid is closed, allowances taken off.
  for (const auto& [ledger, invoices] :
       {std::pair{tarvex::DueLedger::sd, company.collections}, {tarvex::DueLedger::sf, company.payments}}) {
    const auto dues = tarvex::readDueDates(station.session, ledger, "");
    REQUIRE(dues);
    CHECK(invoices.size() > 5);
    CHECK(std::ranges::count_if(*dues, [](const auto& due) { return !isOpen(due); }) ==
          static_cast<long>(invoices.size()));
  }
  // Whatever code: the VAT that is not deducted stands on its own account.
  REQUIRE(station.session.pc.search(0, "00014") == store::kOk);
  CHECK(station.session.pc.B.saldo > 0);
}

TEST_CASE("a seed gives one company, whatever the machine") {
  const demo::Company one = demo::drawCompany(3), same = demo::drawCompany(3), other = demo::drawCompany(4);
  CHECK(one.customers.size() == 40);
  CHECK(one.customers.front().ragsoc == same.customers.front().ragsoc);
  CHECK(one.invoices.back().total() == same.invoices.back().total());
  CHECK(one.invoices.back().total() != other.invoices.back().total());
}
