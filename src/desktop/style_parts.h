// The pieces that the style is drawn from.
#pragma once

class QPainter;
class QPointF;
class QRect;
class QRectF;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionHeader;
class QStyleOptionMenuItem;
class QStyleOptionTab;
class QWidget;
class QColor;

namespace desktop::parts {

void chevron(QPainter& painter, const QPointF& centre, bool down, const QColor& ink);
void fieldBox(QPainter& painter, const QStyleOption& option);
void checkMark(QPainter& painter, const QStyleOption& option);
void optionMark(QPainter& painter, const QStyleOption& option);
void focusRing(QPainter& painter, const QStyleOption& option);  // around a check or an option with its words
void pushButton(QPainter& painter, const QStyleOptionButton& option, bool main);
void menuItem(QPainter& painter, const QStyleOptionMenuItem& option);
void menuBarItem(QPainter& painter, const QStyleOptionMenuItem& option);
void tabShape(QPainter& painter, const QStyleOptionTab& option);
void tabLabel(QPainter& painter, const QStyleOptionTab& option);
void headerSection(QPainter& painter, const QStyleOption& option);
void headerLabel(QPainter& painter, const QStyleOptionHeader& option);
void toolButtonPanel(QPainter& painter, const QStyleOption& option);

}  // namespace desktop::parts
