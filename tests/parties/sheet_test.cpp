// The cards to be read (parties/sheet), beyond what their scenario tells.
#include <doctest/doctest.h>

#include "archives/fa.h"
#include "archives/xx.h"
#include "chart/company.h"
#include "parties/forms.h"
#include "parties/history.h"

using namespace tarvex;

namespace {

void addDocument(test::Company& books, const std::string& key, const std::string& customer,
                 const std::string& invoice) {
  OpenArchive<rec::xx> xx(books.session, 1, 2);
  xx->A = {};
  xx->A.cliente = customer;
  xx->A.numfv = invoice;
  xx->A.datafv = "20030210";
  for (std::size_t row = 1; row < xx->A.codice.size(); ++row) {
    xx->A.codice[row] = "**";
    xx->A.descrizione[row] = "Riga";
  }
  xx->put(key, store::Put::add);
  xx->flush();
}

}  // namespace

TEST_CASE("a double click on any of a document's lines opens it, where there is a unit that shows it") {
  test::Company books;
  static std::string shown;
  class Visdoc : public ui::Form {
   public:
    explicit Visdoc(Session& session) : Form(session.desk(), "VISDOC1", "Documento") {
      shown = session.DocumentToShow;
    }
    ui::Field campo{*this, "campo", "Campo", ui::Mask::text(1)};
  };
  constexpr Unit units[] = {{"VISDOC1", [](Session& session) -> std::unique_ptr<ui::Form> {
                               return std::make_unique<Visdoc>(session);
                             }}};
  const std::string rossi = books.add("c", "Rossi"), verdi = books.add("c", "Verdi");
  addDocument(books, "00000001", verdi, "100001");
  addDocument(books, "00000002", rossi, "100002");
  addDocument(books, "00000003", rossi, "1ABCDE");  // no number: nothing is made up
  FakeDesk desk;
  Session session({books.directory.path(), books.directory.path(), TARVEX_SOURCE_DIR "/data",
                   common::Clock("15/04/2003", "10:30")},
                  desk, units);
  session.DataDirectory = books.session.DataDirectory;
  session.CompanyCode = books.session.CompanyCode;
  session.WorkYear = books.session.WorkYear;
  session.TodayText = "15/04/2003";
  session.pc.open(session.stem("pc"));
  desk.modal["VISDOC1"] = [](ui::Form& form) { form.close(); };

  const auto form = makeViscli(session);
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", "Rossi");
  auto& documents = hands.at<ui::List>("documenti");
  hands.go("documenti");
  REQUIRE(documents.rows().count() == 6);
  for (const auto& [row, key] : {std::pair{0, "00000002"}, {2, "00000002"}, {4, "00000003"}}) {
    shown.clear();
    hands.user.pick(documents, row);
    CHECK(shown == key);
  }
  CHECK(desk.beeps == 0);
  CHECK(documents.rows().cell(3, 7).empty());
}

TEST_CASE("the notes of a card to be read take no text, whatever is typed into them") {
  test::Company books;
  books.add("c", "Rossi");
  books.session.pc.A.note = "un <b>buon</b> cliente";
  books.session.pc.put(books.lastCode(), store::Put::rewrite);
  const auto form = makeViscli(books.session);
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", "Rossi");
  auto& note = hands.at<ui::Memo>("note");
  CHECK(!hands.user.set(note, "altro"));
  REQUIRE(hands.go("note"));
  hands.user.type("x");
  hands.user.key(ui::Key::backspace);
  hands.user.paste("y");
  hands.user.edited(note, "z");
  CHECK(note.text() == "un <b>buon</b> cliente");
}

TEST_CASE("turnover counts by the month of its record, and leaves out what has none") {
  test::Company books;
  const std::string rossi = books.add("c", "Rossi");
  {
    OpenArchive<rec::fa> fa(books.session, 1, 2);
    int number = 0;
    for (const char* date : {"20030131", "20031231", "20031301", "20030001", "", "2003", "xxxxxxxx"}) {
      fa->A = {};
      fa->A.data = date;
      fa->A.cliente = rossi;
      fa->A.importo = 0.1;
      fa->put("10000" + std::to_string(++number), store::Put::add);
    }
  }
  const MonthlyTurnover months = turnoverOf(books.session, rossi, "2003");
  CHECK(months == MonthlyTurnover{0.1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.1});
  CHECK(turnoverOf(books.session, rossi, "2002") == MonthlyTurnover{});
  CHECK(turnoverOf(books.session, "99999", "2003") == MonthlyTurnover{});
  CHECK(books.desk.boxes.empty());
}
