// The style of every widget: Fusion's measures under a flat drawing of our own, in the tokens of the theme.
#pragma once

#include <QProxyStyle>

namespace desktop {

// A push button with this property set to true stands out in the accent colour.
inline constexpr const char* kMainButton = "main";
// A line edit with this property is a cell of a grid: the grid draws its borders.
inline constexpr const char* kCell = "cell";

class Style : public QProxyStyle {
 public:
  Style();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;

 private:
  void drawScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
  void drawTitleBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
};

}  // namespace desktop
