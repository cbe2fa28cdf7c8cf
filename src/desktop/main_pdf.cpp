// tarvex-pdf: reads a report on standard input and writes it as a PDF file, painted as the window paints it.
#include <QGuiApplication>
#include <cstdio>
#include <iostream>
#include <iterator>

#include "desktop/report_json.h"
#include "desktop/report_paint.h"

int main(int argc, char** argv) {
  if (argc != 2) return std::fputs("usage: tarvex-pdf FILE < report\n", stderr), 2;
  // Paper needs fonts but no screen.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  const std::string json{std::istreambuf_iterator<char>(std::cin), {}};
  const auto report = desktop::parseReport(json);
  if (!report) return std::fputs("tarvex-pdf: no report on standard input\n", stderr), 1;
  if (desktop::writePdf(*report, QString::fromLocal8Bit(argv[1]))) return 0;
  std::fprintf(stderr, "tarvex-pdf: cannot write %s\n", argv[1]);
  return 1;
}
