#include "desktop/report_sheet.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/words.h"

namespace desktop {
namespace {

constexpr QColor kMark(27, 94, 140, 46), kFound(255, 200, 40, 130);

}  // namespace

ReportSheet::ReportSheet(const ui::Report& report, QWidget* parent)
    : QWidget(parent), report_(report), painter_(report) {
  setCursor(Qt::IBeamCursor);
  setAccessibleName(text(report.title()));
}

void ReportSheet::setPage(int page) {
  page_ = page;
  first_ = last_ = -1;
  found_ = {};
  update();
}

void ReportSheet::setScale(double pixelsOfPoint) {
  scale_ = pixelsOfPoint;
  setFixedSize((paperOf(report_) * scale_).toSize());
  update();
}

void ReportSheet::markAll() {
  first_ = 0;
  last_ = static_cast<int>(report_.pages()[static_cast<std::size_t>(page_)].size()) - 1;
  update();
}

QString ReportSheet::markedText() const {
  if (!hasMarks()) return {};
  const auto lines = report_.textOf(report_.pages()[static_cast<std::size_t>(page_)]);
  QStringList marked;
  for (int i = std::min(first_, last_); i <= std::max(first_, last_); ++i)
    if (i >= 0 && i < static_cast<int>(lines.size())) marked << text(lines[static_cast<std::size_t>(i)]);
  return marked.join(QLatin1Char('\n'));
}

QRectF ReportSheet::showFound(std::size_t line, qsizetype at, qsizetype count) {
  found_ = painter_.place(report_.pages()[static_cast<std::size_t>(page_)].line(line), at, count);
  update();
  return {found_.topLeft() * scale_, found_.size() * scale_};
}

void ReportSheet::forget() {
  found_ = {};
  update();
}

void ReportSheet::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.scale(scale_, scale_);
  const ui::Page& page = report_.pages()[static_cast<std::size_t>(page_)];
  if (hasMarks())
    for (int i = std::min(first_, last_); i <= std::max(first_, last_); ++i) {
      const QRectF line = painter_.place(page.line(static_cast<std::size_t>(i)), 0, 1);
      painter.fillRect(QRectF(report_.margin() - 4, line.top(),
                              paperOf(report_).width() - 2 * report_.margin() + 8, line.height()),
                       kMark);
    }
  if (found_.isValid()) painter.fillRect(found_.adjusted(-1, 0, 1, 0), kFound);
  painter_.paint(painter, page_);
}

// The line under a height in pixels, or the nearest one.
int ReportSheet::lineAt(double y) const {
  const auto lines = report_.pages()[static_cast<std::size_t>(page_)].lines();
  int nearest = -1;
  double distance = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const double away = std::abs(painter_.place(lines[i], 0, 1).center().y() - y / scale_);
    if (nearest >= 0 && away >= distance) continue;
    nearest = static_cast<int>(i);
    distance = away;
  }
  return nearest;
}

void ReportSheet::mousePressEvent(QMouseEvent* event) {
  parentWidget()->setFocus();
  if (event->button() != Qt::LeftButton) return event->ignore();
  const int line = lineAt(event->position().y());
  last_ = line;
  if (first_ < 0 || !(event->modifiers() & Qt::ShiftModifier)) first_ = line;
  update();
  event->ignore();  // the view takes the keyboard
}

void ReportSheet::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton) || first_ < 0) return;
  last_ = lineAt(event->position().y());
  update();
}

}  // namespace desktop
