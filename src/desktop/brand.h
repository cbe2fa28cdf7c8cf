// The product's picture, drawn: on the start screen and in "Informazioni su".
#pragma once

class QPainter;
class QRect;

namespace desktop {

void paintBrand(QPainter& painter, const QRect& rect);

}  // namespace desktop
