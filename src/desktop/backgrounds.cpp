#include "desktop/backgrounds.h"

#include <QFileInfo>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

#include "desktop/brand.h"

namespace desktop {
namespace {

constexpr QSize kSize(1920, 1080);

void fill(QPainter& painter, const QColor& from, const QColor& to) {
  QLinearGradient ground(0, 0, kSize.width(), kSize.height());
  ground.setColorAt(0, from);
  ground.setColorAt(1, to);
  painter.fillRect(QRect(QPoint(), kSize), ground);
}

void paintLogo(QPainter& painter) {
  fill(painter, "#dfe9f1", "#b7cddd");
  constexpr QRect card(560, 390, 800, 300);
  QPainterPath rounded;
  rounded.addRoundedRect(card, 26, 26);
  for (int blur = 1; blur <= 14; ++blur) {
    painter.setPen(QPen(QColor(20, 50, 80, 6), blur * 4));
    painter.drawPath(rounded.translated(0, 10));
  }
  painter.setClipPath(rounded);
  paintBrand(painter, card);
}

// Waves, each a band of its own shade.
void paintWaves(QPainter& painter) {
  fill(painter, "#17496d", "#2d7fae");
  painter.setPen(Qt::NoPen);
  for (int band = 0; band < 6; ++band) {
    QPainterPath wave(QPointF(0, kSize.height()));
    for (int x = 0; x <= kSize.width(); x += 12)
      wave.lineTo(x, 430 + band * 105 + 70 * std::sin(x / (310.0 + 40 * band) + band * 1.1));
    wave.lineTo(kSize.width(), kSize.height());
    painter.setBrush(QColor(255, 255, 255, 14));
    painter.drawPath(wave);
  }
}

// A sheet of squared paper with the bars of a year on it.
void paintSheet(QPainter& painter) {
  fill(painter, "#f7f4ec", "#e9e2d2");
  painter.setPen(QPen(QColor(120, 140, 150, 40), 1));
  for (int x = 0; x < kSize.width(); x += 40) painter.drawLine(x, 0, x, kSize.height());
  for (int y = 0; y < kSize.height(); y += 40) painter.drawLine(0, y, kSize.width(), y);
  constexpr int heights[] = {120, 170, 150, 230, 210, 280, 260, 190, 310, 350, 330, 420};
  painter.setPen(Qt::NoPen);
  for (int month = 0; month < 12; ++month) {
    const QRectF bar(1120 + month * 60, 1000 - heights[month], 40, heights[month]);
    painter.setBrush(month == 11 ? QColor(224, 150, 42, 190) : QColor(27, 94, 140, 60 + 8 * month));
    painter.drawRoundedRect(bar, 6, 6);
  }
  painter.setPen(QPen(QColor(27, 94, 140, 120), 3));
  painter.drawLine(1100, 1000, 1860, 1000);
}

struct Own {
  const char* file;
  void (*paint)(QPainter&);
};
constexpr Own kOwn[] = {
    {"SfondoLogoDorlen.bmp", paintLogo}, {"SfondoTV1.bmp", paintWaves}, {"SfondoTV2.bmp", paintSheet}};

}  // namespace

QPixmap backgroundOf(const QString& path) {
  if (path.isEmpty()) return {};
  if (QPixmap picture(path); !picture.isNull()) return picture;
  for (const Own& own : kOwn) {
    if (QFileInfo(path).fileName() != own.file) continue;
    QPixmap picture(kSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    own.paint(painter);
    return picture;
  }
  return {};
}

}  // namespace desktop
