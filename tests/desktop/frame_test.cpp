// The window of the frame: what its menus offer, what it remembers, how it ends.
#include <doctest/doctest.h>
#include <algorithm>

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>

#include "desktop/area.h"
#include "desktop/screen.h"
#include "desktop/side_bar.h"
#include "desktop/status_panels.h"
#include "desktop/words.h"

namespace {

void count(const std::vector<tarvex::MenuEntry>& entries, int& all) {
  for (const tarvex::MenuEntry& entry : entries) {
    if (entry.children.empty()) ++all;
    count(entry.children, all);
  }
}

}  // namespace

TEST_CASE("the whole menu tree stands, and what is not built yet is disabled in its place") {
  test::Screen screen;
  screen.startWithCompany();
  auto& window = screen.program.window();
  int all = 0;
  count(tarvex::menuTree(), all);
  CHECK(window.menuBar()->actions().size() == qsizetype(tarvex::menuTree().size()));
  int found = 0;
  for (QAction* action : window.menuBar()->findChildren<QAction*>()) {
    const tarvex::MenuEntry* entry = tarvex::findMenu(desktop::utf8(action->objectName()));
    if (!entry) continue;
    ++found;
    CAPTURE(entry->name);
    const bool acts = entry->action != tarvex::MenuAction::open || entry->unit == "primo";
    CHECK(action->isEnabled() == (acts || screen.program.session().knows(entry->unit)));
  }
  CHECK(found == all);
}

TEST_CASE("the panels show warehouse and company, and a click tells the code") {
  test::Screen screen;
  screen.startWithCompany();
  auto& status = screen.program.window().status();
  CHECK(status.panel(6) == "01");
  CHECK(status.panel(8) == "Alfa Forniture S.r.l.");
  CHECK(screen.program.window().menuBar()->actions().at(9)->text() == "&Magazzino 01");
  QString told;
  screen.modals.expect([&](QWidget& box) {
    for (const QLabel* label : box.findChildren<QLabel*>()) told += label->text();
    test::press(Qt::Key_Return);
  });
  QTest::mouseClick(&status, Qt::LeftButton, {}, QPoint(5, 10));
  CHECK(told == "Codice azienda: AD");
}

TEST_CASE("the tool bar has six styles and hides where the parameters say so") {
  test::Screen screen;
  screen.startWithCompany();
  auto& window = screen.program.window();
  auto* tools = window.findChild<QToolBar*>();
  REQUIRE(tools);
  std::vector<std::pair<int, int>> looks;
  for (int style = 1; style <= 6; ++style) {
    window.setToolStyle(style);
    looks.emplace_back(tools->iconSize().width(), int(tools->toolButtonStyle()));
  }
  std::sort(looks.begin(), looks.end());
  CHECK(std::unique(looks.begin(), looks.end()) == looks.end());
  screen.program.session().param.mostratoolbar = 0;
  screen.program.session().param.mostralistbar = 0;
  screen.program.desk().frameChanged();
  CHECK(tools->isHidden());
  CHECK(window.sideBar()->isHidden());
}

TEST_CASE("a form that stood somewhere stands there again") {
  test::Screen screen;
  screen.startWithCompany();
  auto& area = screen.program.window().area();
  screen.program.session().open("STRIV");
  screen.settle();
  area.activeSubWindow()->move(140, 30);
  area.activeSubWindow()->close();
  screen.settle();
  screen.program.session().open("STRIV");
  screen.settle();
  CHECK(area.activeSubWindow()->pos() == QPoint(140, 30));
}

TEST_CASE("forms arranged in a cascade keep their sizes, one step after the other") {
  test::Screen screen;
  screen.startWithCompany();
  std::vector<QSize> sizes;
  auto& area = screen.program.window().area();
  for (const char* unit : {"mcfv", "STRIV"}) {
    screen.program.session().open(unit);
    screen.settle();
    sizes.push_back(area.activeSubWindow()->size());
    area.activeSubWindow()->move(200, 5);
  }
  for (QToolBar* bar : screen.program.window().findChildren<QToolBar*>())
    for (QAction* key : bar->actions())
      if (key->text() == "Disponi finestre") key->trigger();
  const auto windows = area.subWindowList(QMdiArea::StackingOrder);
  REQUIRE(windows.size() == 2);
  CHECK(windows[0]->geometry() == QRect(QPoint(0, 0), sizes[0]));
  CHECK(windows[1]->geometry() == QRect(QPoint(30, 30), sizes[1]));
}

TEST_CASE("the cross of the window asks while forms stand open, and a no keeps everything") {
  test::Screen screen;
  screen.startWithCompany();
  screen.program.session().open("mcfv");
  screen.program.session().open("STRIV");
  screen.settle();
  screen.modals.expect([](QWidget&) { test::press(Qt::Key_N, Qt::AltModifier); });
  screen.program.window().close();
  CHECK(screen.program.window().isVisible());
  CHECK(screen.program.desk().forms().size() == 2);
  screen.modals.expect([](QWidget&) { test::press(Qt::Key_Return); });
  screen.program.window().close();
  CHECK_FALSE(screen.program.window().isVisible());
}
