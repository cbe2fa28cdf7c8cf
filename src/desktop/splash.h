// The start screen: the product's picture and nothing else.
#pragma once

#include <QWidget>

namespace desktop {

class Splash : public QWidget {
 public:
  Splash();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
