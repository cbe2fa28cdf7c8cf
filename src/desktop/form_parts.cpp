#include "desktop/form_parts.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include "desktop/theme.h"
#include "desktop/words.h"

namespace desktop {

QLabel* captionLabel(const std::string& caption) {
  auto* label = new QLabel(text(caption));
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

GroupCard::GroupCard(const QString& title) : title_(title) {
  const int top = title.isEmpty() ? 10 : fontMetrics().height() + 12;
  setContentsMargins(12, top, 12, 10);
}

void GroupCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(tokens().line);
  painter.setBrush(tokens().surface);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
  if (title_.isEmpty()) return;
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  painter.setFont(bold);
  painter.setPen(tokens().accent);
  painter.drawText(QRect(12, 5, width() - 24, fontMetrics().height() + 2), Qt::AlignVCenter, title_);
}

void ValueLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(tokens().line);
  painter.setBrush(tokens().disabled);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  painter.end();
  QLabel::paintEvent(event);
}

void Combo::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QComboBox::wheelEvent(event);
  event->ignore();
}

void Combo::mousePressEvent(QMouseEvent* event) {
  if (!onDoubleClick || event->button() != Qt::LeftButton) return QComboBox::mousePressEvent(event);
  twice_ = false;
  QTimer::singleShot(QApplication::doubleClickInterval(), this, [this] {
    if (!twice_) showPopup();
  });
}

void Combo::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!onDoubleClick) return QComboBox::mouseDoubleClickEvent(event);
  twice_ = true;
  onDoubleClick();
}

void SpinField::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QSpinBox::wheelEvent(event);
  event->ignore();
}

}  // namespace desktop
