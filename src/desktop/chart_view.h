// A chart as bars over their labels, with an axis of amounts and a legend; a bar tells its figure when the
// pointer rests on it.
#pragma once

#include <QWidget>

#include "ui/chart.h"

namespace desktop {

class ChartView : public QWidget {
 public:
  explicit ChartView(const ui::Chart& chart, QWidget* parent = nullptr);
  QSize sizeHint() const override { return {420, 260}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Frame {  // where things lie
    QRectF plot;
    double slot = 0, bar = 0;  // widths of a label's place and of one bar
    ui::Axis axis;
    double yOf(double value) const;
  };
  Frame frame() const;
  QRectF barOf(const Frame& frame, std::size_t series, std::size_t label) const;
  void paintAxis(QPainter& painter, const Frame& frame) const;
  void paintLabels(QPainter& painter, const Frame& frame) const;
  void paintLegend(QPainter& painter) const;

  const ui::Chart& chart_;
};

}  // namespace desktop
