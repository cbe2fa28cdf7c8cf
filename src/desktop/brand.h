// The product's picture, drawn: on the start screen and in "Informazioni su".
#pragma once

#include <QWidget>

class QPainter;
class QRect;

namespace desktop {

void paintBrand(QPainter& painter, const QRect& rect);

// The picture as a widget of that size, in pixels.
class Banner : public QWidget {
 public:
  Banner(int width, int height);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
