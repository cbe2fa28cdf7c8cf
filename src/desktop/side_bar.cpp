#include "desktop/side_bar.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <utility>

#include "desktop/backgrounds.h"
#include "desktop/icons.h"
#include "desktop/style_parts.h"
#include "desktop/theme.h"
#include "desktop/words.h"
#include "session/menu.h"

namespace desktop {
namespace {

class Head : public QToolButton {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), underMouse() ? tokens().title.darker(isDark() ? 90 : 104) : tokens().title);
    painter.fillRect(0, height() - 1, width(), 1, tokens().line);
    painter.setPen(isChecked() ? tokens().accent : tokens().titleText);
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.drawText(rect().adjusted(12, 0, -30, 0), Qt::AlignVCenter, text());
    parts::chevron(painter, QPointF(width() - 18, height() / 2.0), isChecked(), painter.pen().color());
  }
};

// A key with its icon at the left, whatever its width.
class BarKey : public QToolButton {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    parts::toolButtonPanel(painter, option);
    icon().paint(&painter, QRect(10, (height() - 20) / 2, 20, 20), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(isEnabled() ? tokens().text : tokens().soft);
    painter.drawText(rect().adjusted(40, 0, -4, 0), Qt::AlignVCenter, text());
  }
};

}  // namespace

SideBar::SideBar(std::function<void(std::string_view)> choose,
                 const std::function<bool(std::string_view)>& available)
    : choose_(std::move(choose)) {
  setFixedWidth(204);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 1, 0);
  column->setSpacing(0);
  for (const tarvex::BarGroup& group : tarvex::sideBar()) {
    auto* head = new Head;
    head->setText(text(group.caption));
    head->setCheckable(true);
    head->setFixedHeight(36);
    head->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    head->setFocusPolicy(Qt::NoFocus);
    const int number = static_cast<int>(groups_.size());
    connect(head, &QToolButton::clicked, this, [this, number] { unfold(number); });
    column->addWidget(head);
    groups_.push_back({head, makeKeys(group.keys, available)});
    column->addWidget(groups_.back().keys, 1);
  }
  unfold(static_cast<int>(groups_.size()) - 1);
}

QWidget* SideBar::makeKeys(const std::vector<std::string_view>& names,
                           const std::function<bool(std::string_view)>& available) {
  auto* keys = new QWidget;
  auto* list = new QVBoxLayout(keys);
  list->setContentsMargins(6, 8, 6, 8);
  list->setSpacing(2);
  for (const std::string_view name : names) {
    const tarvex::MenuEntry* entry = tarvex::findMenu(name);
    if (!entry) continue;
    auto* key = new BarKey;
    key->setIcon(icon(name));
    key->setText(text(entry->caption));
    key->setFixedHeight(33);
    key->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    key->setFocusPolicy(Qt::NoFocus);
    key->setEnabled(available(name));
    connect(key, &QToolButton::clicked, this, [this, name] { choose_(name); });
    list->addWidget(key);
  }
  list->addStretch();
  return keys;
}

void SideBar::unfold(int group) {
  if (group < 0 || group >= static_cast<int>(groups_.size())) return;
  unfolded_ = group;
  for (int i = 0; i < static_cast<int>(groups_.size()); ++i) {
    groups_[static_cast<std::size_t>(i)].head->setChecked(i == group);
    groups_[static_cast<std::size_t>(i)].keys->setVisible(i == group);
  }
}

void SideBar::setPicture(const QString& path) {
  picture_ = backgroundOf(path);
  update();
}

void SideBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), tokens().surface);
  if (!picture_.isNull()) painter.drawTiledPixmap(rect(), picture_);
  painter.fillRect(width() - 1, 0, 1, height(), tokens().line);
}

}  // namespace desktop
