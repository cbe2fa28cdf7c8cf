#include "desktop/icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "desktop/drawings.h"
#include "desktop/theme.h"

namespace desktop {
namespace {

const QColor& colourOf(Ink ink) {
  switch (ink) {
    case Ink::text:
      return tokens().text;
    case Ink::warning:
      return tokens().warning;
    case Ink::critical:
      return tokens().critical;
    default:
      return tokens().accent;
  }
}

// Draws in the colours of the theme in use when it is painted, so that a change of theme needs no new icons.
class LineEngine : public QIconEngine {
 public:
  LineEngine(const Drawing& drawing, Ink ink) : drawing_(drawing), ink_(ink) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const double density = painter->device() ? painter->device()->devicePixelRatioF() : 1;
    QPixmap pixels = drawn(rect.size() * density, mode);
    pixels.setDevicePixelRatio(density);
    painter->drawPixmap(rect.topLeft(), pixels);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override { return drawn(size, mode); }
  QIconEngine* clone() const override { return new LineEngine(drawing_, ink_); }

 private:
  QPixmap drawn(const QSize& size, QIcon::Mode mode) const {
    const QColor colour = mode == QIcon::Disabled ? tokens().line : colourOf(ink_);
    const QString key = QString("tarvex-%1-%2-%3")
                            .arg(QLatin1String(drawing_.name.data(), qsizetype(drawing_.name.size())))
                            .arg(size.width())
                            .arg(colour.name());
    QPixmap pixels;
    if (QPixmapCache::find(key, &pixels)) return pixels;
    pixels = QPixmap(size);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    QSvgRenderer(source(colour)).render(&painter);
    painter.end();
    QPixmapCache::insert(key, pixels);
    return pixels;
  }

  QByteArray source(const QColor& colour) const {
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24' fill='none' stroke='" +
           colour.name().toLatin1() +
           "' stroke-width='1.6' stroke-linecap='round' stroke-linejoin='round'><path d='" +
           QByteArray(drawing_.path.data(), qsizetype(drawing_.path.size())) + "'/></svg>";
  }

  const Drawing& drawing_;
  Ink ink_;
};

}  // namespace

QIcon icon(std::string_view name, Ink ink) {
  for (const Drawing& drawing : drawings())
    if (drawing.name == name) return QIcon(new LineEngine(drawing, ink));
  return {};
}

}  // namespace desktop
