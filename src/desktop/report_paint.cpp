#include "desktop/report_paint.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

#include "desktop/words.h"

namespace desktop {
namespace {

constexpr int kFine = 20;  // units of a point in which letters are measured
const QSizeF kA4(595.276, 841.89);
constexpr double kLeading = 1.2;

void paintPicture(QPainter& painter, const ui::Picture& picture) {
  const QPixmap image(text(picture.path));
  if (image.isNull()) return;
  constexpr double kPointsOfPixel = 0.75;
  const QSizeF size =
      picture.width > 0 ? QSizeF(picture.width, picture.height) : QSizeF(image.size()) * kPointsOfPixel;
  painter.drawPixmap(QRectF(QPointF(picture.left, picture.top), size), image, QRectF(image.rect()));
}

template <class Device>
void prepare(const ui::Report& report, Device& device) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(report.setup().landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  device.setPageMargins(QMarginsF(0, 0, 0, 0));
}

template <class Device>
void paintPages(const ui::Report& report, Device& device, int first, int last) {
  QPainter painter(&device);
  if (!painter.isActive()) return;
  painter.scale(device.logicalDpiX() / 72.0, device.logicalDpiY() / 72.0);
  const ReportPainter pages(report);
  for (int page = first; page <= last; ++page) {
    if (page > first) device.newPage();
    pages.paint(painter, page);
  }
}

}  // namespace

QSizeF paperOf(const ui::Report& report) { return report.setup().landscape ? kA4.transposed() : kA4; }

QFont reportFont(const std::string& family) {
  QFont font(QStringList{text(family), "Courier New", "Liberation Mono", "DejaVu Sans Mono", "monospace"});
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(false);
  return font;
}

ReportPainter::ReportPainter(const ui::Report& report)
    : report_(report), font_(reportFont(report.setup().font)), scale_(fit()) {}

QFont ReportPainter::fontOf(const ui::Line& line) const {
  QFont font = font_;
  font.setPixelSize(std::max(1, qRound(line.size * kFine)));
  font.setBold(line.bold);
  return font;
}

double ReportPainter::fit() const {
  QFont font = font_;
  font.setPixelSize(100 * kFine);
  const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0')) / (100.0 * kFine);
  double width = 0, height = 0;
  for (const ui::Page& page : report_.pages())
    for (const ui::Line& line : page.lines()) {
      if (line.text.empty()) continue;
      width = std::max(width, double(common::length(line.text)) * line.size * advance);
      height = std::max(height, line.top + line.size * kLeading);
    }
  const QSizeF room = paperOf(report_) - QSizeF(2, 2) * report_.margin();
  return std::min({1.0, width > 0 ? room.width() / width : 1, height > 0 ? room.height() / height : 1});
}

void ReportPainter::paint(QPainter& painter, int number) const {
  const ui::Page& page = report_.pages().at(static_cast<std::size_t>(number));
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.translate(report_.margin(), report_.margin());
  painter.scale(scale_, scale_);
  for (const ui::Picture& picture : page.pictures()) paintPicture(painter, picture);
  painter.scale(1.0 / kFine, 1.0 / kFine);
  painter.setPen(Qt::black);
  for (const ui::Line& line : page.lines()) {
    if (line.text.empty()) continue;
    painter.setFont(fontOf(line));
    painter.drawText(QPointF(0, (line.top + line.size) * kFine), text(line.text));
  }
  painter.restore();
}

QRectF ReportPainter::place(const ui::Line& line, qsizetype first, qsizetype count) const {
  const QFontMetricsF metrics(fontOf(line));
  const QString words = text(line.text);
  const double left = metrics.horizontalAdvance(words.left(first)) / kFine;
  const double width = metrics.horizontalAdvance(words.mid(first, count)) / kFine;
  return {report_.margin() + left * scale_, report_.margin() + (line.top + line.size * 0.12) * scale_,
          width * scale_, line.size * 1.15 * scale_};
}

bool writePdf(const ui::Report& report, const QString& path) {
  report.finish();
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  {
    QPdfWriter writer(&file);
    writer.setTitle(text(report.title()));
    writer.setCreator("Tarvex");
    prepare(report, writer);
    paintPages(report, writer, 0, static_cast<int>(report.pages().size()) - 1);
  }
  return file.commit();
}

bool printReport(const ui::Report& report, QPrinter& printer) {
  report.finish();
  printer.setDocName(text(report.title()));
  printer.setFullPage(true);
  prepare(report, printer);
  const int count = static_cast<int>(report.pages().size());
  const bool some = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  paintPages(report, printer, some ? printer.fromPage() - 1 : 0,
             some ? std::min(count, std::max(printer.toPage(), printer.fromPage())) - 1 : count - 1);
  return printer.printerState() != QPrinter::Error && printer.printerState() != QPrinter::Aborted;
}

}  // namespace desktop
