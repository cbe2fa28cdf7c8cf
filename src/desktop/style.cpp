#include "desktop/style.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPainter>
#include <QRadioButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "desktop/style_parts.h"
#include "desktop/theme.h"

namespace desktop {
namespace {

bool holds(const QWidget* widget, const char* property) {
  return widget && widget->property(property).toBool();
}

void frameLine(QPainter& painter, const QRect& rect, const QColor& fill, double round) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(tokens().line);
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
  painter.restore();
}

// A bar is parted from the inner windows by a line: at its foot, or at its head when it stands below them.
int lineOf(const QStyleOption& option) {
  const auto* bar = qstyleoption_cast<const QStyleOptionToolBar*>(&option);
  return bar && bar->toolBarArea == Qt::BottomToolBarArea ? option.rect.top() : option.rect.bottom();
}

// A line edit that is a part of a larger control, or a cell, is framed by what holds it.
void lineEdit(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(&option);
  if (widget &&
      (qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) || (panel && panel->lineWidth == 0)))
    return;
  if (!holds(widget, kCell)) return parts::fieldBox(painter, option);
  painter.fillRect(option.rect, option.state & QStyle::State_HasFocus ? tokens().focus : tokens().field);
  painter.setPen(tokens().accent);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

}  // namespace

Style::Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_FrameFocusRect:  // of the others the focus shows in the colours
      if (qobject_cast<const QRadioButton*>(widget) || qobject_cast<const QCheckBox*>(widget))
        parts::focusRing(*painter, *option);
      return;
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase:
      return;
    case PE_PanelLineEdit:
      return lineEdit(*painter, *option, widget);
    case PE_IndicatorCheckBox:
      return parts::checkMark(*painter, *option);
    case PE_IndicatorRadioButton:
      return parts::optionMark(*painter, *option);
    case PE_PanelButtonTool:
      return parts::toolButtonPanel(*painter, *option);
    case PE_PanelMenu:
      return painter->fillRect(option->rect, tokens().surface);
    case PE_FrameMenu:
      return frameLine(*painter, option->rect, Qt::transparent, 0);
    case PE_FrameTabWidget:
      return frameLine(*painter, option->rect, tokens().surface, 3);
    case PE_FrameWindow:
      return frameLine(*painter, option->rect, tokens().window, 0);
    case PE_PanelStatusBar:
      painter->fillRect(option->rect, tokens().surface);
      return painter->fillRect(QRect(option->rect.left(), option->rect.top(), option->rect.width(), 1),
                               tokens().line);
    case PE_Frame:
      if (!qobject_cast<const QLineEdit*>(widget))
        return frameLine(*painter, option->rect, Qt::transparent, 3);
      break;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  switch (element) {
    case CE_PushButton:
      return parts::pushButton(*painter, *qstyleoption_cast<const QStyleOptionButton*>(option),
                               holds(widget, kMainButton));
    case CE_MenuBarItem:
      return parts::menuBarItem(*painter, *qstyleoption_cast<const QStyleOptionMenuItem*>(option));
    case CE_MenuBarEmptyArea:
      return painter->fillRect(option->rect, tokens().surface);
    case CE_MenuItem:
      return parts::menuItem(*painter, *qstyleoption_cast<const QStyleOptionMenuItem*>(option));
    case CE_TabBarTabShape:
      return parts::tabShape(*painter, *qstyleoption_cast<const QStyleOptionTab*>(option));
    case CE_TabBarTabLabel:
      return parts::tabLabel(*painter, *qstyleoption_cast<const QStyleOptionTab*>(option));
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
      return parts::headerSection(*painter, *option);
    case CE_HeaderLabel:
      return parts::headerLabel(*painter, *qstyleoption_cast<const QStyleOptionHeader*>(option));
    case CE_ToolBar:
      painter->fillRect(option->rect, tokens().surface);
      return painter->fillRect(QRect(option->rect.left(), lineOf(*option), option->rect.width(), 1),
                               tokens().line);
    default:
      return QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  switch (control) {
    case CC_ComboBox:
      parts::fieldBox(*painter, *option);
      return parts::chevron(
          *painter, QRectF(proxy()->subControlRect(control, option, SC_ComboBoxArrow, widget)).center(), true,
          tokens().soft);
    case CC_SpinBox: {
      parts::fieldBox(*painter, *option);
      const QRectF up = proxy()->subControlRect(control, option, SC_SpinBoxUp, widget);
      const QRectF down = proxy()->subControlRect(control, option, SC_SpinBoxDown, widget);
      parts::chevron(*painter, up.center() + QPointF(0, 1), false, tokens().soft);
      return parts::chevron(*painter, down.center() - QPointF(0, 1), true, tokens().soft);
    }
    case CC_ScrollBar:
      return drawScrollBar(*option, *painter, widget);
    case CC_TitleBar:
      return drawTitleBar(*option, *painter, widget);
    default:
      return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

void Style::drawScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
  const auto& bar = static_cast<const QStyleOptionSlider&>(option);
  painter.fillRect(option.rect, tokens().window);
  if (bar.minimum == bar.maximum) return;
  const bool upright = bar.orientation == Qt::Vertical;
  QRectF slider = proxy()->subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
  slider.adjust(upright ? 3 : 1, upright ? 1 : 3, upright ? -3 : -1, upright ? -1 : -3);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(option.state & (State_MouseOver | State_Sunken)
                       ? tokens().soft
                       : tokens().line.darker(isDark() ? 80 : 112));
  const double round = std::min(slider.width(), slider.height()) / 2;
  painter.drawRoundedRect(slider, round, round);
  painter.restore();
}

void Style::drawTitleBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
  const auto& bar = static_cast<const QStyleOptionTitleBar&>(option);
  const bool active = bar.titleBarState & State_Active;
  const QColor ink = active ? tokens().accentText : tokens().titleText;
  painter.save();
  painter.fillRect(bar.rect, active ? tokens().accent : tokens().title);
  QFont font = painter.font();
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(ink);
  QRect words = proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget).adjusted(0, 0, -4, 0);
  words.setLeft(bar.rect.left() + 13);  // there is no icon in front
  painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, words.width()));
  painter.setRenderHint(QPainter::Antialiasing);
  for (const SubControl part :
       {SC_TitleBarMinButton, SC_TitleBarMaxButton, SC_TitleBarNormalButton, SC_TitleBarCloseButton}) {
    const QRect box = proxy()->subControlRect(CC_TitleBar, &bar, part, widget);
    if (!(bar.subControls & part) || !box.isValid()) continue;
    if ((bar.activeSubControls & part) && (bar.state & State_MouseOver)) {
      QColor glow = ink;
      glow.setAlpha(50);
      painter.fillRect(box, glow);
    }
    painter.setPen(QPen(ink, 1.4));
    painter.setBrush(Qt::NoBrush);
    const QRectF sign(box.center().x() - 4, box.center().y() - 4, 9, 9);
    if (part == SC_TitleBarCloseButton) {
      painter.drawLine(sign.topLeft(), sign.bottomRight());
      painter.drawLine(sign.topRight(), sign.bottomLeft());
    } else if (part == SC_TitleBarMinButton) {
      painter.drawLine(sign.bottomLeft(), sign.bottomRight());
    } else if (part == SC_TitleBarMaxButton) {
      painter.drawRect(sign);
    } else {
      painter.drawRect(sign.adjusted(0, 2.5, -2.5, 0));
      painter.drawPolyline(
          QPolygonF({sign.topLeft() + QPointF(2.5, 2.5), sign.topLeft() + QPointF(2.5, 0), sign.topRight(),
                     sign.bottomRight() - QPointF(0, 2.5), sign.bottomRight() - QPointF(2.5, 2.5)}));
    }
  }
  painter.restore();
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  switch (type) {
    case CT_PushButton:
      return {size.width() + 36, std::max(result.height(), 30)};
    case CT_LineEdit:
      return {result.width(), std::max(result.height(), 26)};
    case CT_ComboBox:
    case CT_SpinBox:
      return {result.width() + 6, std::max(result.height(), 26)};
    case CT_MenuBarItem:
      return {size.width() + 18, size.height() + 12};
    case CT_MenuItem: {
      const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      if (item && item->menuItemType == QStyleOptionMenuItem::Separator) return {size.width(), 9};
      return {size.width() + 62, size.height() + 11};
    }
    case CT_TabBarTab:
      return {result.width() + 4, std::max(result.height(), 32)};
    case CT_HeaderSection:
      return {result.width(), std::max(result.height(), 28)};
    default:
      return result;
  }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  if (element == SE_LineEditContents && holds(widget, kCell)) return option->rect.adjusted(2, 1, -2, -1);
  return QProxyStyle::subElementRect(element, option, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_TitleBarHeight:
      return 30;
    case PM_MdiSubWindowFrameWidth:
      return 1;
    case PM_ScrollBarExtent:
      return 13;
    case PM_ToolBarItemSpacing:
      return 2;
    case PM_ToolBarItemMargin:
      return 4;
    case PM_MenuPanelWidth:
      return 1;
    case PM_MenuVMargin:
      return 4;
    case PM_SubMenuOverlap:
      return -2;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const {
  switch (hint) {
    case SH_TitleBar_NoBorder:
    case SH_UnderlineShortcut:
      return 1;
    case SH_EtchDisabledText:
    case SH_ComboBox_Popup:
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
  }
}

}  // namespace desktop
