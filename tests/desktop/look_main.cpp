// Opens forms over an installation that stands already, and leaves a picture of each: for the eye.
//
//   tarvex-look [--dark] DATA FOLDER UNIT[:KEYS] ...
//
// KEYS are parted by commas: Enter, F2, Escape, Alt+O, Page=Note, or a text that is typed. What stands modal
// after the keys is taken, too, as UNIT-modal.png, and closed. Today is 15/02/2003.
#include <QDir>
#include <QMdiSubWindow>
#include <QTabBar>
#include <cstdio>

#include "desktop/area.h"
#include "desktop/screen.h"
#include "desktop/words.h"
#include "ui/user.h"

namespace {

QString folder;

void shot(QWidget& widget, const QString& name) {
  QApplication::processEvents();
  widget.grab().save(folder + "/" + name + ".png");
}

// The page of that caption in the front window, by a click on it.
void turnTo(const QString& caption) {
  for (auto* bar : test::focus()->window()->findChildren<QTabBar*>())
    for (int page = 0; bar->isVisible() && page < bar->count(); ++page)
      if (bar->tabText(page) == caption) Q_EMIT bar->tabBarClicked(page);
  QApplication::processEvents();
}

void strike(const QString& word) {
  static const QHash<QString, Qt::Key> named{{"Enter", Qt::Key_Return}, {"Escape", Qt::Key_Escape},
                                             {"Tab", Qt::Key_Tab},      {"Down", Qt::Key_Down},
                                             {"Up", Qt::Key_Up},        {"PageDown", Qt::Key_PageDown},
                                             {"Space", Qt::Key_Space}};
  if (named.contains(word)) return test::press(named[word]);
  if (word.startsWith("Page=")) return turnTo(word.mid(5));
  if (word.startsWith("Alt+")) return test::press(Qt::Key(word[4].toUpper().unicode()), Qt::AltModifier);
  if (word.size() > 1 && word[0] == 'F' && word.mid(1).toInt() > 0)
    return test::press(Qt::Key(Qt::Key_F1 + word.mid(1).toInt() - 1));
  test::type(word);
}

// The first company, its latest year.
void chooseCompany(ui::Form& scelta) {
  ui::User user(scelta);
  for (ui::Control* control : scelta.controls())
    if (auto* choice = dynamic_cast<ui::Choice*>(control);
        choice && choice->index() < 0 && choice->reachable())
      user.choose(*choice, choice->name() == "Combo2" ? static_cast<int>(choice->items().size()) - 1 : 0);
  test::press(Qt::Key_O, Qt::AltModifier);
}

void look(test::Screen& screen, const QString& asked) {
  const QString unit = asked.section(':', 0, 0), keys = asked.section(':', 1);
  screen.modals.expect([&](QWidget& modal) {
    shot(modal, unit + "-modal");
    modal.close();
  });
  screen.program.frame().openUnit(unit.toStdString(), {});
  screen.settle();
  if (!keys.isEmpty())
    for (const QString& word : keys.split(',')) strike(word);
  screen.settle();
  shot(screen.program.window(), unit);
  while (auto* window = screen.program.window().area().activeSubWindow()) {
    window->close();
    screen.settle();
    if (screen.program.window().area().activeSubWindow() == window) break;
  }
  screen.modals.forget();
}

}  // namespace

int main(int argc, char** argv) {
  QStringList words;
  for (int i = 1; i < argc; ++i) words << argv[i];
  const bool dark = words.removeAll("--dark") > 0;
  if (words.size() < 3)
    return std::fputs("usage: tarvex-look [--dark] DATA FOLDER UNIT[:KEYS] ...\n", stderr), 2;
  folder = words[1];
  QDir().mkpath(folder);
  test::application();
  desktop::applyTheme(test::application(), dark);
  test::Screen screen("15/02/2003", words[0].toStdString());
  screen.modals.expect([&](QWidget&) { chooseCompany(*screen.front()); });
  if (!screen.program.start()) return std::fputs("the program did not start\n", stderr), 1;
  for (const QString& unit : words.mid(2)) look(screen, unit);
  return 0;
}
