#include "desktop/chart_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "common/amount.h"
#include "desktop/theme.h"
#include "desktop/words.h"

namespace desktop {
namespace {

constexpr double kPad = 10, kLegend = 26, kRound = 2;

QColor mixed(const QColor& one, const QColor& other, double share) {
  return QColor::fromRgbF(static_cast<float>(one.redF() * share + other.redF() * (1 - share)),
                          static_cast<float>(one.greenF() * share + other.greenF() * (1 - share)),
                          static_cast<float>(one.blueF() * share + other.blueF() * (1 - share)));
}

// The first series stands out; those behind it fade, so that the latest year is read first.
QColor colourOf(std::size_t series) {
  switch (series % 3) {
    case 0:
      return tokens().accent;
    case 1:
      return mixed(tokens().warning, tokens().field, 0.85);
    default:
      return mixed(tokens().soft, tokens().field, 0.5);
  }
}

// With as many decimals as the steps need.
QString tickText(double value, double step) { return text(common::toText(value, step < 1 ? 2 : 0)); }

}  // namespace

ChartView::ChartView(const ui::Chart& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
  setMinimumSize(300, 200);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

double ChartView::Frame::yOf(double value) const {
  const double within = std::clamp(std::isfinite(value) ? value : 0, axis.low, axis.high);
  return plot.bottom() - (within - axis.low) / (axis.high - axis.low) * plot.height();
}

ChartView::Frame ChartView::frame() const {
  Frame frame;
  frame.axis = ui::axisOf(chart_.series());
  const QFontMetricsF metrics(font());
  double wide = 0;
  for (const double end : {frame.axis.low, frame.axis.high})
    wide = std::max(wide, metrics.horizontalAdvance(tickText(end, frame.axis.step)));
  frame.plot =
      QRectF(rect()).adjusted(kPad + wide + 8, kPad + kLegend, -kPad, -(kPad + metrics.height() + 4));
  const auto labels = static_cast<double>(std::max<std::size_t>(chart_.labels().size(), 1));
  frame.slot = frame.plot.width() / labels;
  frame.bar = frame.slot * 0.76 / static_cast<double>(std::max<std::size_t>(chart_.series().size(), 1));
  return frame;
}

QRectF ChartView::barOf(const Frame& frame, std::size_t series, std::size_t label) const {
  const double left = frame.plot.left() + frame.slot * (static_cast<double>(label) + 0.12) +
                      frame.bar * static_cast<double>(series);
  const double zero = frame.yOf(0), top = frame.yOf(chart_.series()[series].values[label]);
  return {left, std::min(zero, top), std::max(frame.bar - 1, 1.0), std::abs(zero - top)};
}

void ChartView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(tokens().line);
  painter.setBrush(tokens().field);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  if (chart_.series().empty()) {
    painter.setPen(tokens().soft);
    painter.drawText(rect(), Qt::AlignCenter, "Nessun dato");
    return;
  }
  const Frame lies = frame();
  paintAxis(painter, lies);
  paintLabels(painter, lies);
  painter.setPen(Qt::NoPen);
  for (std::size_t series = 0; series < chart_.series().size(); ++series) {
    painter.setBrush(colourOf(series));
    for (std::size_t label = 0; label < chart_.labels().size(); ++label)
      if (const QRectF bar = barOf(lies, series, label); bar.height() > 0)
        painter.drawRoundedRect(bar, kRound, kRound);
  }
  paintLegend(painter);
}

void ChartView::paintAxis(QPainter& painter, const Frame& frame) const {
  const int count = static_cast<int>(std::lround((frame.axis.high - frame.axis.low) / frame.axis.step));
  for (int tick = 0; tick <= count; ++tick) {
    const double value = frame.axis.low + frame.axis.step * tick, y = frame.yOf(value);
    const bool zero = std::abs(value) < frame.axis.step / 2;
    painter.setPen(zero ? tokens().soft : mixed(tokens().line, tokens().field, 0.6));
    painter.drawLine(QPointF(frame.plot.left(), y), QPointF(frame.plot.right(), y));
    painter.setPen(tokens().soft);
    painter.drawText(QRectF(0, y - 10, frame.plot.left() - 8, 20), Qt::AlignRight | Qt::AlignVCenter,
                     tickText(zero ? 0 : value, frame.axis.step));
  }
}

// Three letters of each where the whole words do not fit.
void ChartView::paintLabels(QPainter& painter, const Frame& frame) const {
  const QFontMetricsF metrics(font());
  const bool whole = std::all_of(
      chart_.labels().begin(), chart_.labels().end(),
      [&](const std::string& label) { return metrics.horizontalAdvance(text(label)) + 6 <= frame.slot; });
  painter.setPen(tokens().text);
  for (std::size_t i = 0; i < chart_.labels().size(); ++i) {
    const QString label = text(chart_.labels()[i]);
    painter.drawText(QRectF(frame.plot.left() + frame.slot * static_cast<double>(i), frame.plot.bottom() + 4,
                            frame.slot, metrics.height() + 2),
                     Qt::AlignHCenter | Qt::AlignTop, whole ? label : label.left(3));
  }
}

void ChartView::paintLegend(QPainter& painter) const {
  const QFontMetricsF metrics(font());
  double at = width() - kPad;
  for (std::size_t series = chart_.series().size(); series-- > 0;) {
    const QString name = text(chart_.series()[series].name);
    at -= metrics.horizontalAdvance(name);
    painter.setPen(tokens().text);
    painter.drawText(QRectF(at, kPad, metrics.horizontalAdvance(name) + 2, 16),
                     Qt::AlignLeft | Qt::AlignVCenter, name);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(series));
    painter.drawRoundedRect(QRectF(at - 16, kPad + 3, 10, 10), kRound, kRound);
    at -= 34;
  }
}

bool ChartView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const Frame lies = frame();
  for (std::size_t series = 0; series < chart_.series().size(); ++series)
    for (std::size_t label = 0; label < chart_.labels().size(); ++label)
      if (barOf(lies, series, label).adjusted(0, -3, 0, 3).contains(help->pos())) {
        const ui::Series& shown = chart_.series()[series];
        QToolTip::showText(help->globalPos(), text(chart_.labels()[label] + " " + shown.name + ": " +
                                                   common::toText(shown.values[label])));
        return true;
      }
  QToolTip::hideText();
  return true;
}

}  // namespace desktop
