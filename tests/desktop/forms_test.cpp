// Every form of the program, drawn.
#include <doctest/doctest.h>

#include <QTextBrowser>

#include "desktop/area.h"
#include "desktop/form_view.h"
#include "desktop/form_window.h"
#include "desktop/screen.h"
#include "ui/lookup.h"

TEST_CASE("every form is drawn whole on a small screen, and closes clean") {
  test::Screen screen;
  screen.startWithCompany();
  const QSize room = screen.program.window().area().size();
  for (const tarvex::Unit& unit : tarvex::units()) {
    if (!test::standsInTheFrame(unit.name)) continue;
    CAPTURE(unit.name);
    screen.program.session().open(unit.name);
    screen.settle();
    auto* window = screen.program.window().area().activeSubWindow();
    REQUIRE(window);
    ui::Form* form = screen.front();
    REQUIRE(form);
    CHECK(form->name() == unit.name);
    CHECK(ui::faultsOf(*form) == std::vector<std::string>());
    auto* stands = dynamic_cast<desktop::FormWindow*>(window);
    REQUIRE(stands);
    const desktop::FormView* view = &stands->view();
    CHECK(view->sizeHint().width() + 4 <= room.width());
    CHECK(view->sizeHint().height() + 34 <= room.height());
    for (const ui::Control* control : form->controls())
      if (&control->placed() == control) CHECK_MESSAGE(view->widgetOf(*control), control->name());
    CHECK(QApplication::focusWidget());
    window->close();
    screen.settle();
    CHECK(screen.program.desk().forms().empty());
  }
}

TEST_CASE("F1 opens the guide over a modal form, and Escape leads back into it") {
  test::Screen screen;
  screen.startWithCompany();
  bool read = false, back = false;
  screen.modals.expect([&](QWidget& apriaz) {
    test::press(Qt::Key_F1);
    auto* guide = apriaz.findChild<QWidget*>("guida");
    read = guide && guide->isVisible() && !guide->findChild<QTextBrowser*>()->toPlainText().isEmpty();
    if (guide) QTest::keyClick(guide, Qt::Key_Escape);
    back = !guide || !guide->isVisible();
    apriaz.close();
  });
  screen.program.session().run("APRIAZ");
  CHECK(read);
  CHECK(back);
}

TEST_CASE("a modal form closes by Escape and by its cross as the form says") {
  test::Screen screen;
  screen.startWithCompany();
  for (const bool byKey : {true, false}) {
    screen.modals.expect([byKey](QWidget& apriaz) {
      if (byKey)
        test::press(Qt::Key_Escape);
      else
        apriaz.close();
    });
    screen.program.session().run("APRIAZ");
    screen.settle();
    CHECK(screen.modals.done());
    CHECK(screen.program.desk().forms().empty());
  }
}
