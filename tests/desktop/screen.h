// The desktop program on the offscreen platform, and a person at its keyboard.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <stdexcept>

#include "app/units.h"
#include "desktop/program.h"
#include "desktop/theme.h"
#include "tools/scratch.h"
#include "ui/form.h"

namespace test {

// One for the whole program of tests, as the toolkit wants it.
inline QApplication& application() {
  static int count = 1;
  static char name[] = "test_desktop";
  static char* words[] = {name, nullptr};
  static QApplication* app = nullptr;  // never destroyed: the toolkit's own statics may go before it
  if (app) return *app;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  app = new QApplication(count, words);
  desktop::applyTheme(*app, false);
  QApplication::setQuitOnLastWindowClosed(false);
  return *app;
}

inline QWidget* focus() {
  QWidget* widget = QApplication::focusWidget();
  if (!widget) throw std::logic_error("nothing has the focus");
  return widget;
}

inline void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QTest::keyClick(focus(), key, with);
}
inline void type(const QString& keys) {
  for (const QChar key : keys) QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, QString(key), {});
}
inline void enter(const QString& keys = {}) {
  type(keys);
  press(Qt::Key_Return);
}

// Whether a unit opens as an inner window; the others run as modal steps.
inline bool standsInTheFrame(std::string_view unit) {
  return unit != "PASS" && unit != "SCELTA" && unit != "APRIAZ";
}

// What the user does in the modal windows to come, one after the other: each act runs when its window stands.
class Modals {
 public:
  Modals() {
    application();
    lookLater();
  }
  void expect(std::function<void(QWidget&)> act) { acts_.push_back(std::move(act)); }
  bool done() const { return acts_.empty(); }
  void forget() { acts_.clear(); }
  QStringList seen;  // titles

 private:
  // A timer does not fire again while its own call is running, as an act does that opens the next window.
  void lookLater() {
    QTimer::singleShot(5, &alive_, [this] {
      lookLater();
      look();
    });
  }

  void look() {
    QWidget* window = QApplication::activeModalWidget();
    if (!window || window == last_ || !window->isVisible()) return;
    if (!window->isAncestorOf(QApplication::focusWidget())) return window->activateWindow();
    last_ = window;
    seen << window->windowTitle();
    if (acts_.empty()) {
      window->close();  // nobody foresaw it: the test fails by what it has seen, and goes on
      return;
    }
    const auto act = std::move(acts_.front());
    acts_.pop_front();
    act(*window);
    last_ = QApplication::activeModalWidget() == window ? window : nullptr;
  }

  std::deque<std::function<void(QWidget&)>> acts_;
  QPointer<QWidget> last_;
  QObject alive_;
};

class Screen {
 public:
  // On a new installation, or on the one at `data`.
  explicit Screen(const std::string& today = "15/01/2003", const std::filesystem::path& data = {})
      : app(application()),
        program({.session = {data.empty() ? directory.path() : data, directory.path(),
                             TARVEX_SOURCE_DIR "/data", common::Clock(today, "10:30")},
                 .units = tarvex::units(),
                 .settings = QString::fromStdString((directory.path() / "tarvex.ini").string()),
                 .splash = false}) {
    program.window().setWindowState(Qt::WindowNoState);
    program.window().resize(1366, 768);
  }

  // The start with a new company, entered through SCELTA and APRIAZ by keys.
  void startWithCompany() {
    modals.expect([this](QWidget&) {
      modals.expect([](QWidget&) {
        enter("Alfa Forniture S.r.l.");
        enter("Via Roma 12");
        enter("Torino");
        enter("00488410010");
        type("2003");
        press(Qt::Key_O, Qt::AltModifier);
      });
      press(Qt::Key_N, Qt::AltModifier);
    });
    if (!program.start()) throw std::logic_error("the program did not start");
    settle();
  }

  // Lets queued events happen, the activation of the frame by the platform included.
  void settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    if (!QApplication::activeWindow()) QApplication::setActiveWindow(&program.window());
    QApplication::processEvents();
  }

  ui::Form* front() {
    const auto forms = program.desk().forms();
    return forms.empty() ? nullptr : forms.back();
  }
  std::string focused() { return front() && front()->focused() ? front()->focused()->name() : std::string(); }
  std::string textOf(std::string_view control) {
    for (const ui::Control* at : front()->controls())
      if (at->name() == control) return dynamic_cast<const ui::Field&>(*at).text();
    throw std::logic_error("no control " + std::string(control));
  }

  QApplication& app;
  Modals modals;
  Scratch directory;
  desktop::Program program;
};

}  // namespace test
