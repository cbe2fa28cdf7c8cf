#include "desktop/area.h"

#include <QPainter>

#include "desktop/backgrounds.h"
#include "desktop/theme.h"

namespace desktop {
namespace {

constexpr long kPresetGrey = 0xC0C0C0;

// The part of `picture` that fills `room` when it is drawn in its own proportions.
QRectF filling(const QSize& picture, const QSize& room) {
  const QSizeF shown = QSizeF(room).scaled(picture, Qt::KeepAspectRatio);
  return {QPointF(picture.width() - shown.width(), picture.height() - shown.height()) / 2, shown};
}

}  // namespace

Area::Area() {
  setActivationOrder(StackingOrder);
  setOption(DontMaximizeSubWindowOnActivation);
  setFrameShape(NoFrame);
}

void Area::setGround(long colour, const QString& picture) {
  const bool own = colour == 0 || colour == kPresetGrey || colour < 0 || colour > 0xFFFFFF;
  colour_ = own ? QColor() : QColor(int(colour & 0xFF), int(colour >> 8 & 0xFF), int(colour >> 16 & 0xFF));
  picture_ = backgroundOf(picture);
  viewport()->update();
}

void Area::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QColor ground = colour_.isValid() ? colour_ : tokens().ground;
  painter.fillRect(viewport()->rect(), ground);
  if (!picture_.isNull()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    return painter.drawPixmap(QRectF(viewport()->rect()), picture_,
                              filling(picture_.size(), viewport()->size()));
  }
  QFont font = painter.font();
  font.setPointSize(60);
  font.setWeight(QFont::Bold);
  painter.setFont(font);
  painter.setPen(ground.lightness() < 110 ? ground.lighter(125) : ground.darker(106));
  painter.drawText(viewport()->rect().adjusted(0, 0, -26, -8), Qt::AlignRight | Qt::AlignBottom, "Tarvex");
}

}  // namespace desktop
