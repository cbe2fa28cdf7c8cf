// tarvex [--data DIR] [--program DIR] [--offer DIR] [--today dd/mm/yyyy] [--now HH:MM] [--dark | --light]
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>

#include "app/units.h"
#include "common/date.h"
#include "desktop/program.h"
#include "desktop/theme.h"
#include "desktop/words.h"

namespace {

constexpr int kUnusable = 2;

int refuse(const QString& why) {
  std::fprintf(stderr, "tarvex: %s\n", qPrintable(why));
  return kUnusable;
}

void declare(QCommandLineParser& parser) {
  parser.addOptions({{"data", "Directory of the archives.", "dir"},
                     {"program", "The program's own directory, where the file rr lies.", "dir"},
                     {"offer", "What a new installation holds.", "dir"},
                     {"today", "The day of the session, dd/mm/yyyy.", "day"},
                     {"now", "The time of the session, HH:MM.", "time"},
                     {"dark", "Dark colours."},
                     {"light", "Light colours."}});
  parser.addHelpOption();
  parser.addVersionOption();
}

// What a new installation holds: beside the installed program, or in the sources that it was built from.
QString offeredData(const QString& given) {
  if (!given.isEmpty()) return given;
  const QString installed = QApplication::applicationDirPath() + "/../share/tarvex";
  return QFileInfo(installed).isDir() ? installed : QString(TARVEX_DATA_DIR);
}

QString homeOf(QStandardPaths::StandardLocation kind) {
  return QStandardPaths::writableLocation(kind) + "/tarvex";
}

std::optional<std::string> optional(const QString& text) {
  return text.isEmpty() ? std::nullopt : std::optional(desktop::utf8(text));
}

bool wantsDark(const QCommandLineParser& parser, const QString& settings) {
  if (parser.isSet("dark")) return true;
  if (parser.isSet("light")) return false;
  const bool desktopIsDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
  return QSettings(settings, QSettings::IniFormat).value("window/dark", desktopIsDark).toBool();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("tarvex");
  QApplication::setApplicationVersion(TARVEX_VERSION);
  QApplication::setDesktopFileName("tarvex");
  QApplication::setQuitOnLastWindowClosed(false);  // the frame tells when the program ends
  QCommandLineParser parser;
  declare(parser);
  parser.process(app);
  const QString data =
      parser.isSet("data") ? parser.value("data") : homeOf(QStandardPaths::GenericDataLocation);
  const QString today = parser.value("today");
  if (!today.isEmpty() && !common::dayExists(desktop::utf8(today))) return refuse("no day: " + today);
  if (!QDir().mkpath(data) || !QFileInfo(data).isWritable()) return refuse(data + ": cannot be used");
  const QString settings = homeOf(QStandardPaths::GenericConfigLocation) + "/tarvex.ini";
  desktop::applyTheme(app, wantsDark(parser, settings));

  const std::string directory = desktop::utf8(data);
  const std::string program = parser.isSet("program") ? desktop::utf8(parser.value("program")) : directory;
  desktop::Program tarvex({.session = {directory, program, desktop::utf8(offeredData(parser.value("offer"))),
                                       common::Clock(optional(today), optional(parser.value("now")))},
                           .units = tarvex::units(),
                           .settings = settings});
  QTimer::singleShot(0, &app, [&tarvex] { tarvex.start(); });
  return QApplication::exec();
}
