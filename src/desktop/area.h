// The ground of the inner windows: a colour, a picture, or the product's name.
#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace desktop {

class Area : public QMdiArea {
 public:
  Area();
  // `colour` is blue * 65536 + green * 256 + red. 0 and the grey that every installation begins with are the
  // theme's own ground. A picture that does not load counts as none.
  void setGround(long colour, const QString& picture);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
  QPixmap picture_;
};

}  // namespace desktop
