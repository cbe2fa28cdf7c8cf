// A whole invoice by the keyboard alone, from the new customer to the printed register.
#include <doctest/doctest.h>

#include <QMdiSubWindow>

#include "archives/iv.h"
#include "archives/mc.h"
#include "desktop/area.h"
#include "desktop/report_view.h"
#include "desktop/screen.h"

namespace {

using test::enter, test::press, test::type;

void customer(test::Screen& screen, const QString& name) {
  screen.program.session().open("RCLIENTE");
  screen.settle();
  type(name);
  press(Qt::Key_R, Qt::AltModifier);
  screen.settle();
  press(Qt::Key_Escape);
  screen.settle();
}

}  // namespace

TEST_CASE("an invoice entered by keys is posted, and its register shows it") {
  test::Screen screen;
  screen.startWithCompany();
  customer(screen, "Bianchi Mario & C. S.n.c.");
  screen.program.session().open("mcfv");
  screen.settle();
  REQUIRE(screen.front()->name() == "mcfv");

  enter("15012003");
  enter("125");
  enter("10012003");
  enter();  // register 1
  type("bian");
  CHECK(screen.textOf("text5") == "Bianchi Mario & C. S.n.c.");
  enter();
  enter("Vendita merce gennaio");
  enter("1220");
  screen.modals.expect([](QWidget&) { press(Qt::Key_Return); });  // F5: the first sottoconto
  press(Qt::Key_F5);
  screen.settle();
  REQUIRE(screen.modals.done());
  CHECK_FALSE(screen.textOf("controp(1)").empty());
  CHECK(screen.focused() == "imponibile(1)");
  enter("1000");
  enter("22");
  CHECK(screen.textOf("importoiva(1)") == "220,00");
  press(Qt::Key_R, Qt::AltModifier);
  screen.settle();
  CHECK(screen.modals.seen.filter("Errore").isEmpty());
  CHECK(screen.focused() == "text1");
  CHECK(screen.textOf("text2").empty());

  tarvex::Session& session = screen.program.session();
  tarvex::OpenArchive<rec::mc> journal(session, 9801, 9802);
  int rows = 0;
  for (journal->bof(0); journal->next(0) == store::kOk;) ++rows;
  CHECK(rows == 3);

  session.open("STRIV");
  screen.settle();
  press(Qt::Key_O, Qt::AltModifier);
  screen.settle();
  auto* preview =
      dynamic_cast<desktop::ReportView*>(screen.program.window().area().activeSubWindow()->widget());
  REQUIRE(preview);
  CHECK(preview->find("Bianchi Mario"));
  CHECK(preview->find("1.000,00"));
}
