// A report on paper, in a PDF file and on the screen: one way of painting for all three.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include "ui/report.h"

class QPainter;
class QPrinter;

namespace desktop {

QSizeF paperOf(const ui::Report& report);  // in points, A4 upright or lying

// Where the lines of a report stand. The letters are measured in fine units, so that no zoom moves a column.
// A report that is wider or longer than its paper is drawn smaller, whole.
class ReportPainter {
 public:
  explicit ReportPainter(const ui::Report& report);

  // One unit of the painter is one point; the origin is the corner of the paper. `page` counts from 0.
  void paint(QPainter& painter, int page) const;

  // The place of the characters from `first` on, on the paper, in points.
  QRectF place(const ui::Line& line, qsizetype first, qsizetype count) const;

 private:
  QFont fontOf(const ui::Line& line) const;
  double fit() const;

  const ui::Report& report_;
  QFont font_;
  double scale_;
};

// The fixed-pitch font that stands for `family`: the family itself, or its metric twin.
QFont reportFont(const std::string& family);

// Writes a file whole or not at all; false when it cannot be written.
bool writePdf(const ui::Report& report, const QString& path);

// The pages that the printer's dialogue chose, all of them when there was none. False when the printer could
// not be reached or gave up.
bool printReport(const ui::Report& report, QPrinter& printer);

}  // namespace desktop
