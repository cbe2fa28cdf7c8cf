// One page of a report as a sheet on the screen, with the lines that are marked and the place that was found.
#pragma once

#include <QWidget>

#include "desktop/report_paint.h"

namespace desktop {

class ReportSheet : public QWidget {
 public:
  ReportSheet(const ui::Report& report, QWidget* parent = nullptr);

  void setPage(int page);  // from 0; marks nothing
  int page() const { return page_; }
  void setScale(double pixelsOfPoint);
  void markAll();
  bool hasMarks() const { return first_ >= 0; }
  QString markedText() const;
  QRectF showFound(std::size_t line, qsizetype at, qsizetype count);  // in pixels of the sheet
  void forget();                                                      // what was found

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  int lineAt(double y) const;

  const ui::Report& report_;
  ReportPainter painter_;
  int page_ = 0;
  double scale_ = 1;
  int first_ = -1, last_ = -1;  // lines marked
  QRectF found_;                // in points
};

}  // namespace desktop
