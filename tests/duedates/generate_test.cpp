// The instalments of an amount, date by date, and how they reach the ledgers.
#include "duedates/generate.h"

#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/st.h"
#include "ledger/books.h"

using namespace tarvex;
using test::Books;

namespace {

struct Case {
  const char* what;
  rec::cpag condition;  // its description apart
  double amount;
  const char* date;
  std::vector<Instalment> due;
};

rec::cpag terms(const char* tipo, int numrate, int primarata, int giorno, int agosto = 0, int salta = 0) {
  const auto small = [](int n) { return static_cast<std::int16_t>(n); };
  return {"", tipo, small(numrate), small(primarata), small(giorno), small(agosto), small(salta)};
}

const std::vector<Case> kCases{
    {"the first takes what the cut leaves over",
     terms("rd", 3, 1, 0),
     100,
     "20030110",
     {{"20030210", 33.34}, {"20030310", 33.33}, {"20030410", 33.33}}},
    {"no cent is lost to a binary tail", terms("rd", 1, 1, 0), 0.29, "20030110", {{"20030210", 0.29}}},
    {"a quota that is no double",
     terms("rd", 4, 1, 0),
     1.15,
     "20030110",
     {{"20030210", 0.31}, {"20030310", 0.28}, {"20030410", 0.28}, {"20030510", 0.28}}},
    {"less than a cent for each",
     terms("rd", 2, 1, 0),
     0.01,
     "20030110",
     {{"20030210", 0.01}, {"20030310", 0}}},
    {"at sight", terms("rb", 0, 0, 30), 50, "20030131", {{"20030131", 50}}},
    {"a negative amount at once and whole", terms("rb", 3, 1, 30), -100, "20030131", {{"20030131", -100}}},
    {"a description alone", terms("", 0, 0, 0), 50, "20030131", {}},
    {"the end of the month, each by itself",
     terms("rd", 2, 1, 30),
     10,
     "20030131",
     {{"20030228", 5}, {"20030331", 5}}},
    {"... of a leap year", terms("rd", 1, 1, 30), 10, "20040131", {{"20040229", 10}}},
    {"... of 2016 by the short list", terms("rd", 1, 1, 30), 10, "20160131", {{"20160228", 10}}},
    {"a day cut in 2016 by the long list", terms("rd", 1, 1, 0), 10, "20160131", {{"20160229", 10}}},
    {"a leap year on neither list", terms("rd", 1, 1, 0), 10, "20200131", {{"20200228", 10}}},
    {"the day comes back after a short month",
     terms("rd", 3, 1, 0),
     9,
     "20030131",
     {{"20030228", 3}, {"20030331", 3}, {"20030430", 3}}},
    {"one month apart whatever the first is",
     terms("rd", 2, 5, 0),
     9,
     "20031015",
     {{"20040315", 4.5}, {"20040415", 4.5}}},
    {"a day beyond the rule's moves on",
     terms("rd", 2, 1, 10),
     9,
     "20030520",
     {{"20030710", 4.5}, {"20030810", 4.5}}},
    {"a day at the rule's stays", terms("rd", 1, 1, 10), 9, "20030510", {{"20030610", 9}}},
    {"it moves over the year's end", terms("rd", 1, 1, 15), 9, "20031116", {{"20040115", 9}}},
    {"August passed over", terms("rd", 2, 1, 0, 0, 1), 9, "20030705", {{"20030905", 4.5}, {"20031005", 4.5}}},
    {"August reached by the rule is not passed over",
     terms("rd", 1, 1, 20, 0, 1),
     9,
     "20030625",
     {{"20030820", 9}}},
    {"August at its end, and the day stays there",
     terms("rd", 2, 1, 0, 1),
     9,
     "20030705",
     {{"20030831", 4.5}, {"20030930", 4.5}}},
    {"August on the 15th after, the walk goes on in September",
     terms("rd", 3, 1, 0, 2),
     9,
     "20030705",
     {{"20030915", 3}, {"20030905", 3}, {"20031005", 3}}},
    {"December on the 15th after, the walk goes on in January",
     terms("rd", 2, 1, 30, 2),
     9,
     "20031105",
     {{"20040115", 4.5}, {"20040131", 4.5}}},
};

}  // namespace

TEST_CASE("instalments fall due as their condition says") {
  for (const Case& one : kCases) {
    CAPTURE(one.what);
    const auto due = instalmentsOf(one.condition, one.amount, one.date);
    REQUIRE(due.size() == one.due.size());
    for (std::size_t i = 0; i < due.size(); ++i) {
      CHECK(due[i].scadenza == one.due[i].scadenza);
      CHECK(due[i].importo == one.due[i].importo);
    }
  }
}

TEST_CASE("each kind of account has its ledger, and a condition that is gone is told") {
  Books books;
  Session& session = books.session();
  const auto generate = [&](const char* condition, double amount, const char* account) {
    return GenerateDueDatesForDocument(session, condition, amount, "00012", "20030115", account);
  };
  generate("Bonifico 30 gg. d.f.", 10, "00051");
  const auto receipts = generate("Ri.Ba. 30/60 gg. f.m.", 10.01, "00051");
  CHECK(receipts.ScadenzeDocumento == std::array<std::string, 4>{"28/02/2003", "31/03/2003", "", ""});
  CHECK(receipts.RateDocumento == std::array<double, 4>{5.01, 5, 0, 0});
  const auto credit = generate("Ri.Ba. 30/60 gg. f.m.", -7, "00051");
  CHECK(credit.ScadenzeDocumento[0].empty());
  generate("Ri.Ba. 30 gg. f.m.", 20, "00054");
  generate("Bonifico 30 gg. d.f.", 10, "00052");  // a sottoconto owes nothing
  generate("Pagamento anticipato", 10, "00051");
  generate("", 10, "00051");
  CHECK(books.desk().boxes.empty());
  generate("Bonifico 45 gg.", 10, "00051");
  CHECK(books.desk().box() == "Errore|La condizione di pagamento Bonifico 45 gg. non risulta più registrata");

  const auto sd = books.all<rec::sd>();
  REQUIRE(sd.size() == 2);
  CHECK(sd[0].chiaveconto == "0005120030215");
  CHECK(sd[0].numero == "00012");
  CHECK(sd[0].datafatt == "20030115");
  CHECK(sd[1].importo == -7);
  CHECK(sd[1].scadenza == "20030115");
  CHECK(books.all<rec::st>().size() == 2);
  const auto sf = books.all<rec::sf>();
  REQUIRE(sf.size() == 1);
  CHECK(sf[0].tipo == "rb");
  CHECK(books.counter("scaclird") == 2);
  CHECK(books.counter("scaclitr") == 2);
  CHECK(books.counter("scafornrd") == 1);
}
