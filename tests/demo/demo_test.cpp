// The demonstration is a quarter of a company through the real forms: what it prints must be what it posted.
#include <doctest/doctest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "archives/iv.h"
#include "common/amount.h"
#include "common/text.h"
#include "demo/company.h"
#include "demo/play.h"
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

std::map<std::string, Sums> postedByMonth(tarvex::Session& session) {
  std::map<std::string, Sums> months;
  tarvex::OpenArchive<rec::iv> iv(session, 0, 0);
  iv->bof(0);
  while (iv->next(0) == store::kOk) {
    months[iv->B.mese].imponibile += cents(iv->B.imponibile);
    months[iv->B.mese].imposta += cents(iv->B.imposta);
  }
  return months;
}

}  // namespace

TEST_CASE("the demo's registers agree to the cent with its rows, and its books are whole") {
  const test::Scratch scratch;
  const demo::Played played = demo::play(scratch.path(), TARVEX_SOURCE_DIR "/data", 7);
  for (const std::string& fault : played.faults) FAIL_CHECK(fault);
  CHECK(played.invoices == 120);
  REQUIRE(played.printed.size() == 3);

  test::Station station(scratch.path() / "archivi", "31/03/2026");
  const demo::Company company = demo::drawCompany(7);
  REQUIRE(station.start(test::choose(company.ragsoc, company.year)));
  const auto posted = postedByMonth(station.session);
  REQUIRE(posted.size() == 3);
  auto month = posted.begin();
  Sums all;
  for (const auto& path : played.printed) {
    CHECK(printedTotal(path) == month->second);
    all.imponibile += month->second.imponibile;
    all.imposta += month->second.imposta;
    ++month;
  }
  long drawn = 0;
  for (const demo::Invoice& invoice : company.invoices) drawn += cents(invoice.total());
  CHECK(all.imponibile + all.imposta == drawn);
}

TEST_CASE("a seed gives one company, whatever the machine") {
  const demo::Company one = demo::drawCompany(3), same = demo::drawCompany(3), other = demo::drawCompany(4);
  CHECK(one.customers.size() == 40);
  CHECK(one.customers.front().ragsoc == same.customers.front().ragsoc);
  CHECK(one.invoices.back().total() == same.invoices.back().total());
  CHECK(one.invoices.back().total() != other.invoices.back().total());
}
