#include "desktop/brand.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace desktop {
namespace {

// The ledger of the icon: two pages, a column of figures, a tick.
void paintMark(QPainter& painter, const QRectF& at) {
  const auto point = [&at](double x, double y) {
    return QPointF(at.left() + x * at.width(), at.top() + y * at.height());
  };
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 255, 255, 235));
  QPainterPath left(point(0, 0.12)), right(point(1, 0.12));
  left.cubicTo(point(0.2, 0.02), point(0.38, 0.06), point(0.485, 0.16));
  left.lineTo(point(0.485, 0.95));
  left.cubicTo(point(0.38, 0.86), point(0.2, 0.84), point(0, 0.9));
  right.cubicTo(point(0.8, 0.02), point(0.62, 0.06), point(0.515, 0.16));
  right.lineTo(point(0.515, 0.95));
  right.cubicTo(point(0.62, 0.86), point(0.8, 0.84), point(1, 0.9));
  painter.drawPath(left);
  painter.drawPath(right);
  painter.setPen(QPen(QColor("#1b5e8c"), at.width() * 0.03, Qt::SolidLine, Qt::RoundCap));
  for (const double y : {0.3, 0.44, 0.58, 0.72}) painter.drawLine(point(0.12, y), point(0.37, y + 0.04));
  painter.setPen(QPen(QColor("#e0962a"), at.width() * 0.07, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({point(0.62, 0.52), point(0.71, 0.63), point(0.88, 0.36)}));
}

}  // namespace

void paintBrand(QPainter& painter, const QRect& rect) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(rect.topLeft(), rect.bottomRight());
  ground.setColorAt(0, "#123f5f");
  ground.setColorAt(1, "#2578ad");
  painter.fillRect(rect, ground);
  painter.setPen(QPen(QColor(255, 255, 255, 18), 1));
  for (int y = rect.top() + 20; y < rect.bottom(); y += 20) painter.drawLine(rect.left(), y, rect.right(), y);
  const double side = rect.height() * 0.4;
  paintMark(painter, QRectF(rect.left() + side * 0.55, rect.center().y() - side / 2, side, side));
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(rect.height() * 0.2));
  font.setWeight(QFont::Bold);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(rect.adjusted(static_cast<int>(side * 1.85), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   "Tarvex");
  painter.restore();
}

Banner::Banner(int width, int height) { setFixedSize(width, height); }

void Banner::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintBrand(painter, rect());
}

}  // namespace desktop
