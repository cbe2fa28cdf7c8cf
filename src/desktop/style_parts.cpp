#include "desktop/style_parts.h"

#include <QFontMetrics>
#include <QKeySequence>
#include <QPainter>
#include <QStyleOption>

#include "desktop/theme.h"

namespace desktop::parts {
namespace {

// Strokes of one pixel stand in the middle of the pixels.
QRectF crisp(const QRect& rect) { return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5); }

bool has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

QFont weighted(const QPainter& painter, QFont::Weight weight) {
  QFont font = painter.font();
  font.setWeight(weight);
  return font;
}

class Saved {
 public:
  explicit Saved(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
  }
  ~Saved() { painter_.restore(); }
  Saved(const Saved&) = delete;
  Saved& operator=(const Saved&) = delete;

 private:
  QPainter& painter_;
};

constexpr int kMenuText = 26;  // where the words of a menu begin

}  // namespace

void chevron(QPainter& painter, const QPointF& centre, bool down, const QColor& ink) {
  const Saved saved(painter);
  const double way = down ? 1 : -1;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({centre + QPointF(-3.5, -1.7 * way), centre + QPointF(0, 1.8 * way),
                                  centre + QPointF(3.5, -1.7 * way)}));
}

void fieldBox(QPainter& painter, const QStyleOption& option) {
  const Saved saved(painter);
  const bool on = has(option, QStyle::State_Enabled), focus = has(option, QStyle::State_HasFocus);
  painter.setPen(QPen(focus ? tokens().accent : tokens().line, 1));
  painter.setBrush(!on ? tokens().disabled : focus ? tokens().focus : tokens().field);
  painter.drawRoundedRect(crisp(option.rect), 3, 3);
}

void checkMark(QPainter& painter, const QStyleOption& option) {
  const Saved saved(painter);
  const bool ticked = has(option, QStyle::State_On), focus = has(option, QStyle::State_HasFocus);
  const bool enabled = has(option, QStyle::State_Enabled);
  const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
  const QColor ink = enabled ? tokens().accent : tokens().line;
  painter.setPen(QPen(ticked || focus ? ink : tokens().soft, focus ? 2 : 1.2));
  painter.setBrush(ticked ? ink : focus ? tokens().focus : enabled ? tokens().field : tokens().disabled);
  painter.drawRoundedRect(box, 2.5, 2.5);
  if (!ticked) return;
  painter.setPen(QPen(tokens().accentText, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({box.topLeft() + QPointF(2.8, box.height() * 0.52),
                                  box.topLeft() + QPointF(box.width() * 0.42, box.height() - 3.2),
                                  box.topRight() + QPointF(-2.6, 3.2)}));
}

void optionMark(QPainter& painter, const QStyleOption& option) {
  const Saved saved(painter);
  const bool chosen = has(option, QStyle::State_On), focus = has(option, QStyle::State_HasFocus);
  const bool enabled = has(option, QStyle::State_Enabled);
  const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
  const QColor ink = enabled ? tokens().accent : tokens().line;
  painter.setPen(QPen(chosen || focus ? ink : tokens().soft, focus ? 2 : 1.2));
  painter.setBrush(focus ? tokens().focus : enabled ? tokens().field : tokens().disabled);
  painter.drawEllipse(box);
  if (!chosen) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawEllipse(box.center(), 3.4, 3.4);
}

void focusRing(QPainter& painter, const QStyleOption& option) {
  const Saved saved(painter);
  painter.setPen(QPen(tokens().accent, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(crisp(option.rect), 3, 3);
}

void pushButton(QPainter& painter, const QStyleOptionButton& option, bool main) {
  const Saved saved(painter);
  const bool enabled = has(option, QStyle::State_Enabled), focus = has(option, QStyle::State_HasFocus);
  const bool down = has(option, QStyle::State_Sunken), over = enabled && has(option, QStyle::State_MouseOver);
  QColor fill = !enabled ? tokens().disabled : main ? tokens().accent : tokens().surface;
  if (down) fill = main ? fill.darker(115) : tokens().title;
  if (main && over && !down) fill = fill.lighter(108);
  const QColor edge = main && enabled ? (focus ? tokens().text : fill)
                      : focus || over ? tokens().accent
                                      : tokens().line;
  painter.setPen(QPen(edge, focus ? 2 : 1));
  painter.setBrush(fill);
  const double inset = focus ? 1 : 0.5;
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 4, 4);
  painter.setPen(!enabled ? tokens().soft : main ? tokens().accentText : tokens().text);
  if (main) painter.setFont(weighted(painter, QFont::DemiBold));
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
}

void menuBarItem(QPainter& painter, const QStyleOptionMenuItem& option) {
  const Saved saved(painter);
  const bool chosen = has(option, QStyle::State_Selected);
  painter.fillRect(option.rect, tokens().surface);
  if (chosen) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens().accent);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 3, -1, -3), 3, 3);
  }
  painter.setPen(chosen ? tokens().accentText : tokens().text);
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
}

void menuItem(QPainter& painter, const QStyleOptionMenuItem& option) {
  const Saved saved(painter);
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    painter.fillRect(QRect(option.rect.left() + 8, option.rect.center().y(), option.rect.width() - 16, 1),
                     tokens().line);
    return;
  }
  const bool enabled = has(option, QStyle::State_Enabled);
  const bool chosen = enabled && has(option, QStyle::State_Selected);
  if (chosen) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens().accent);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(4, 1, -4, -1), 3, 3);
  }
  const QColor ink = chosen ? tokens().accentText : enabled ? tokens().text : tokens().soft;
  painter.setPen(ink);
  const QRect words = option.rect.adjusted(kMenuText, 0, -26, 0);
  const qsizetype tab = option.text.indexOf(u'\t');
  painter.drawText(words, Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                   option.text.left(tab));
  if (tab >= 0) painter.drawText(words, Qt::AlignVCenter | Qt::AlignRight, option.text.mid(tab + 1));
  if (option.menuItemType != QStyleOptionMenuItem::SubMenu) return;
  const QPointF at(option.rect.right() - 15, option.rect.center().y() + 0.5);
  painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({at + QPointF(-1.7, -3.5), at + QPointF(1.8, 0), at + QPointF(-1.7, 3.5)}));
}

void tabShape(QPainter& painter, const QStyleOptionTab& option) {
  if (!has(option, QStyle::State_Selected)) return;
  const Saved saved(painter);
  const QRect rect = option.rect;
  painter.setPen(tokens().line);
  painter.setBrush(tokens().surface);
  painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, 1.5));
  painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 2), tokens().accent);
}

void tabLabel(QPainter& painter, const QStyleOptionTab& option) {
  const Saved saved(painter);
  const bool chosen = has(option, QStyle::State_Selected);
  if (chosen) painter.setFont(weighted(painter, QFont::DemiBold));
  painter.setPen(chosen || has(option, QStyle::State_MouseOver) ? tokens().text : tokens().soft);
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
}

void headerSection(QPainter& painter, const QStyleOption& option) {
  painter.fillRect(option.rect, tokens().title);
  painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1), tokens().line);
  painter.fillRect(QRect(option.rect.right(), option.rect.top(), 1, option.rect.height()), tokens().line);
}

void headerLabel(QPainter& painter, const QStyleOptionHeader& option) {
  const Saved saved(painter);
  painter.setFont(weighted(painter, QFont::DemiBold));
  painter.setPen(tokens().titleText);
  painter.drawText(option.rect.adjusted(2, 0, -3, 0), int(option.textAlignment),
                   painter.fontMetrics().elidedText(option.text, Qt::ElideRight, option.rect.width() - 4));
}

void toolButtonPanel(QPainter& painter, const QStyleOption& option) {
  const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
  const bool over = has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
  if (!down && !over) return;
  const Saved saved(painter);
  painter.setPen(tokens().line);
  painter.setBrush(down ? tokens().title : tokens().window);
  painter.drawRoundedRect(crisp(option.rect), 4, 4);
}

}  // namespace desktop::parts
