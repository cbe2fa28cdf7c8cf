#include "desktop/splash.h"

#include <QPainter>
#include <QScreen>

#include "desktop/brand.h"

namespace desktop {

Splash::Splash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setFixedSize(480, 260);
  move(screen()->availableGeometry().center() - rect().center());
  setCursor(Qt::WaitCursor);
}

void Splash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintBrand(painter, rect());
}

}  // namespace desktop
