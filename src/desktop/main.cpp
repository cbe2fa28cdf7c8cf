// tarvex [--data DIR] [--program DIR] [--offer DIR] [--today dd/mm/yyyy] [--now HH:MM] [--dark | --light]
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>

#include "app/units.h"
#include "common/date.h"
#include "common/places.h"
#include "desktop/first_start.h"
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

QString homeOf(QStandardPaths::StandardLocation kind) {
  return QStandardPaths::writableLocation(kind) + "/tarvex";
}

std::optional<std::string> optional(const QString& text) {
  return text.isEmpty() ? std::nullopt : std::optional(desktop::utf8(text));
}

tarvex::SessionOptions sessionOptions(const QCommandLineParser& parser, const QString& data) {
  const auto directory = [&parser](const char* option, std::filesystem::path otherwise) {
    return parser.isSet(option) ? std::filesystem::path(desktop::utf8(parser.value(option))) : otherwise;
  };
  const std::filesystem::path archives = desktop::utf8(data);
  return {archives, directory("program", archives), directory("offer", common::offeredData(TARVEX_DATA_DIR)),
          common::Clock(optional(parser.value("today")), optional(parser.value("now")))};
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
  QApplication::setWindowIcon(QIcon(":/tarvex.svg"));
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

  if (!parser.isSet("program")) desktop::welcome(data, QApplication::applicationDirPath() + "/tarvex-demo");

  desktop::Program tarvex(
      {.session = sessionOptions(parser, data), .units = tarvex::units(), .settings = settings});
  QTimer::singleShot(0, &app, [&tarvex] { tarvex.start(); });
  return QApplication::exec();
}
