// Two stations that take one number: the questions, both answers to them, and what the books hold afterwards.
#include "ledger/books.h"
#include "ledger/ledger_rules.h"

using namespace tarvex;
using test::At, test::Books;

namespace {

std::vector<Violation> doubles(Session& session) {
  for (const Rule& rule : ledgerRules())
    if (rule.name == "numbers are given once") return rule.check(session);
  return {};
}

struct Kind {
  const char *unit, *number, *subject, *contropartita, *counter, *question;
};
const Kind kPurchase{"MCFA", "text7", "FORNITURE VERDI SPA", "Merci c/acquisti", "prot1", "protocollo"};
const Kind kReceipt{"mcco", "text2", "Cassa contanti", "Servizi", "co1", "documento"};
const Kind kSale{"mcfv", "text2", "BIANCHI SNC", "Servizi", "", ""};

void type(Hands& hands, const Kind& kind, const std::string& number) {
  test::fill(hands, {{"text1", "15/01/2003"},
                     {"text2", "1"},
                     {kind.number, number},
                     {"text5", kind.subject},
                     {"text6", "122,00"},
                     {"controp(1)", kind.contropartita},
                     {"imponibile(1)", "100,00"},
                     {"codiva(1)", "22"},
                     {"importoiva(1)", "22,00"}});
}

// Another station on the same books, with the form of that kind.
struct Other {
  Other(Books& books, const Kind& kind) : kind_(kind), station(books.directory.path()) {
    REQUIRE(station.start(test::choose(test::kCompany, test::kYear)));
    form = station.session.make(kind.unit);
    Hands(*form).user.begin();
  }
  void post(const std::string& number) {
    Hands hands(*form);
    type(hands, kind_, number);
    hands.press("Registra");
    REQUIRE(station.desk.boxes.empty());
  }

  const Kind& kind_;
  test::Station station;
  std::unique_ptr<ui::Form> form;
};

std::string questionOf(const Kind& kind) {
  return std::string("Tarvex|Un'altra registrazione è stata nel frattempo effettuata con il numero di ") +
         kind.question +
         " inserito. Si vuole effettuare la registrazione con il primo numero successivo disponibile ?";
}

}  // namespace

TEST_CASE(
    "a number taken between the checks and the lock is asked for, and a yes goes on with the next one") {
  for (const Kind& kind : {kPurchase, kReceipt}) {
    CAPTURE(kind.unit);
    Books books;
    Other other(books, kind);
    other.post("2");
    At mine(books, kind.unit);
    type(mine.hands, kind, "1");
    books.desk().answers = {ui::Answer::no};
    books.desk().whenBusy = [&] { other.post("1"); };
    mine.hands.press("Registra");
    CHECK(books.desk().box() == questionOf(kind));
    CHECK(mine.hands.focus() == kind.number);
    CHECK(books.counter("mc") == 6);  // of the other station alone
    CHECK(books.counter(kind.counter) == 2);

    mine.hands.set(kind.number, "7");
    mine.hands.go("text4");
    books.desk().whenBusy = [&] { other.post("7"), other.post("8"); };
    books.desk().answers = {ui::Answer::yes};
    mine.hands.press("Registra");
    CHECK(books.desk().box() == questionOf(kind));
    CHECK(books.counter(kind.counter) == 9);
    CHECK(books.all<rec::mc>().size() == 15);
    CHECK(mine.hands.text("text5").empty());
    books.checkWhole();
  }
}

TEST_CASE(
    "an invoice whose number was taken between the checks and the lock is refused, and nothing written") {
  Books books;
  Other other(books, kSale);
  At mine(books, kSale.unit);
  type(mine.hands, kSale, "1");
  books.desk().whenBusy = [&] { other.post("1"); };
  mine.hands.press("Registra");
  CHECK(books.desk().box() == "Errore|Fattura già registrata");
  CHECK(mine.hands.focus() == "text2");
  CHECK(mine.hands.text("text6") == "122,00");
  CHECK(books.all<rec::mc>().size() == 3);
}

TEST_CASE("the last protocols of a register: behind 99999 there is no free one") {
  Books books;
  Other other(books, kPurchase);
  At mine(books, kPurchase.unit);
  type(mine.hands, kPurchase, "99999");
  books.desk().whenBusy = [&] { other.post("99999"); };
  books.desk().answers = {ui::Answer::yes};
  mine.hands.press("Registra");
  CHECK(books.desk().box() == "Errore|Protocollo già registrato");
  CHECK(mine.hands.text("text7") == "99999");
  CHECK(books.all<rec::mc>().size() == 3);
}

TEST_CASE("protocols and receipts that stand twice are told, those of other registers and years are not") {
  Books books;
  OpenArchive<rec::mc> mc(books.session(), 1, 2);
  int key = 0;
  const auto row = [&](const char* causale, const char* registro, const char* number, const char* nummov,
                       const char* datareg = "20030115") {
    mc->A = {};
    mc->A.datareg = datareg;
    mc->A.causale = causale;
    mc->A.registro = registro;
    mc->A.protocollo = mc->A.numdoc = number;
    mc->A.nummov = nummov;
    mc->put(common::zeroFill(++key, 8), store::Put::add);
  };
  row("fa", "1", "00001", "1");
  row("fa", "1", "00001", "1");  // two lines of one entry
  row("fa", "2", "00001", "2");
  row("co", "1", "000001", "3");
  row("co", "1", "000002", "4");
  row("fv", "1", "000001", "5");
  row("fa", "1", "00001", "99", "20021115");  // an open item that came over
  CHECK(doubles(books.session()).empty());
  row("ca", "1", "00001", "6");
  row("co", "1", "100002", "7");
  const auto violations = doubles(books.session());
  REQUIRE(violations.size() == 2);
  CHECK(violations[1].text == "registro 1, protocollo 00001 sta in più registrazioni");
  CHECK(violations[1].records == std::vector<std::string>{"mc 00000001", "mc 00000002", "mc 00000008"});
  CHECK(violations[0].records == std::vector<std::string>{"mc 00000005", "mc 00000009"});
}
