// Plays the first sale by keys and leaves pictures of every window on its way: for the eye and for the
// README. tarvex-pictures FOLDER [--dark]; QT_SCALE_FACTOR=2 draws at twice the density.
#include <QDir>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <cstdio>

#include "desktop/area.h"
#include "desktop/report_view.h"
#include "desktop/screen.h"
#include "desktop/splash.h"
#include "desktop/words.h"

namespace {

QString folder;

void shot(QWidget& widget, const char* name) {
  QApplication::processEvents();
  widget.grab().save(folder + "/" + name + ".png");
}

struct Act {
  test::Screen& screen;
  QWidget& frame() { return screen.program.window(); }
  void open(std::string_view unit) {
    screen.settle();
    screen.program.frame().openUnit(unit, {});
    screen.settle();
  }
  void close() {
    screen.program.window().area().activeSubWindow()->close();
    QApplication::processEvents();
  }
};

void start(test::Screen& screen) {
  screen.modals.expect([&](QWidget& scelta) {
    shot(scelta, "02-scelta");
    screen.modals.expect([](QWidget& apriaz) {
      for (const char* words : {"Alfa Forniture S.r.l.", "Via Roma 12", "10121 Torino", "00488410010"})
        test::enter(words);
      test::type("2003");
      shot(apriaz, "03-apriaz");
      test::press(Qt::Key_O, Qt::AltModifier);
    });
    test::press(Qt::Key_N, Qt::AltModifier);
  });
  if (!screen.program.start()) throw std::logic_error("not started");
}

void companies(Act& act) {
  act.open("PARGES");
  auto* tabs = act.frame().findChild<QTabWidget*>();
  for (int page = 0; tabs && page < tabs->count(); ++page) {
    tabs->setCurrentIndex(page);
    shot(act.frame(), ("17-parges-" + std::to_string(page + 1)).c_str());
  }
  act.close();
  for (const char* unit : {"COPIAPC", "DUPLICA", "REGDATI", "PASSW"}) {
    act.open(unit);
    if (unit == std::string_view("COPIAPC")) test::press(Qt::Key_Down);
    shot(act.frame(), unit);
    act.close();
  }
  act.screen.modals.expect([&](QWidget& form) {
    shot(form, "cancella");
    form.close();
  });
  act.screen.program.frame().choose("m7c");
  for (const double preset : {0.0, 1.0, 2.0}) {
    rec::param& param = act.screen.program.session().param;
    param.immaginesfondo = 1;
    param.predefinita = preset;
    act.screen.program.desk().frameChanged();
    shot(act.frame(), ("18-ground-" + std::to_string(int(preset))).c_str());
    param.immaginesfondo = 0;
  }
  act.screen.program.desk().frameChanged();
}

void voices(Act& act) {
  act.open("RPC");
  test::press(Qt::Key_S, Qt::AltModifier);
  shot(act.frame(), "05-rpc");
  act.close();
}

void customer(Act& act) {
  act.open("RCLIENTE");
  test::type("Bianchi Mario & C. S.n.c.");
  shot(act.frame(), "06-rcliente");
  test::press(Qt::Key_R, Qt::AltModifier);
  shot(act.frame(), "06-rcliente-registrato");
  act.close();
}

void invoice(Act& act) {
  act.open("mcfv");
  for (const char* words : {"15012003", "125", "10012003", ""}) test::enter(words);
  test::type("bian");
  shot(act.frame(), "07-completion");
  act.screen.modals.expect([](QWidget& search) {
    shot(search, "08-search");
    test::press(Qt::Key_Return);
  });
  test::press(Qt::Key_F5);
  QApplication::processEvents();
  shot(act.frame(), "09-mcfv");
  act.screen.modals.expect([&](QWidget& box) {
    shot(box, "10-box");
    test::press(Qt::Key_Return);
  });
  test::press(Qt::Key_R, Qt::AltModifier);
  shot(act.frame(), "11-after-box");
}

void prints(Act& act) {
  act.open("STRIV");
  shot(act.frame(), "12-striv");
  ui::Report report("Prova", {.pageLines = 58});
  report.setBold(true);
  report.setSize(14);
  report.line("REGISTRO IVA VENDITE");
  report.setBold(false);
  report.setSize(9);
  for (int i = 1; i < 400; ++i)
    report.line(QString("%1  15/01/2003  BIANCHI MARIO & C. S.N.C.      1.000,00  20  200,00")
                    .arg(i, 5)
                    .toStdString());
  act.screen.program.desk().preview(std::make_shared<const ui::Report>(report));
  QApplication::processEvents();
  auto* view =
      dynamic_cast<desktop::ReportView*>(act.screen.program.window().area().activeSubWindow()->widget());
  view->find("C. S.N.C.");
  shot(act.frame(), "13-preview");
  act.close();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return std::fputs("usage: tarvex-pictures FOLDER [--dark]\n", stderr), 2;
  folder = argv[1];
  QDir().mkpath(folder);
  test::application();
  desktop::applyTheme(test::application(), argc > 2);
  desktop::Splash splash;
  splash.show();
  shot(splash, "01-splash");
  splash.close();
  test::Screen screen;
  Act act{screen};
  start(screen);
  shot(act.frame(), "04-frame");
  screen.modals.expect([](QWidget& about) {
    shot(about, "14-about");
    test::press(Qt::Key_Return);
  });
  screen.program.window().showAbout();
  QMenu* menu = screen.program.window().menuBar()->actions().at(1)->menu();
  menu->resize(menu->sizeHint());
  shot(*menu, "04-menu");
  companies(act);
  voices(act);
  if (screen.program.session().knows("RCLIENTE")) customer(act);
  for (const char* unit : {"rtiva", "vistiva", "MCFA", "mcco", "MCMG", "MCXX", "regxx"}) {
    act.open(unit);
    shot(act.frame(), unit);
    act.close();
  }
  invoice(act);
  prints(act);
  for (const int style : {1, 3, 5}) {
    screen.program.window().setToolStyle(style);
    shot(act.frame(), ("15-tools-" + std::to_string(style)).c_str());
  }
  screen.program.window().showGuide();
  shot(*screen.program.window().findChild<QWidget*>("guida"), "16-guide");
  std::puts("done");
  return 0;
}
