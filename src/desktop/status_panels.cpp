#include "desktop/status_panels.h"

#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <algorithm>

#include "desktop/theme.h"

namespace desktop {
namespace {

constexpr int kWidths[] = {70, 0, 40, 60, 40, 46, 40, 240};  // 0: what is left

}  // namespace

StatusPanels::StatusPanels() : progress_(new QProgressBar) {
  setSizeGripEnabled(false);
  setFixedHeight(30);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    auto* panel = new QLabel;
    panel->setForegroundRole(i == 7 ? QPalette::Text : QPalette::PlaceholderText);
    panel->setContentsMargins(8, 0, 8, 0);
    panel->setTextFormat(Qt::PlainText);
    if (kWidths[i] > 0)
      panel->setFixedWidth(kWidths[i]);
    else
      panel->setMinimumWidth(40);
    panels_[i] = panel;
    addWidget(panel, kWidths[i] > 0 ? 0 : 1);
  }
  progress_->setFixedSize(150, 12);
  progress_->setTextVisible(false);
  addPermanentWidget(progress_);
  progress_->hide();
}

void StatusPanels::setPanel(int panel, const QString& words) {
  if (panel < 1 || panel > static_cast<int>(panels_.size())) return;
  QLabel& label = *panels_[static_cast<std::size_t>(panel) - 1];
  if (label.text() != words) label.setText(words);
  label.setToolTip(panel == 8 ? words : QString());
}

QString StatusPanels::panel(int panel) const {
  return panels_.at(static_cast<std::size_t>(panel) - 1)->text();
}

void StatusPanels::showProgress(std::size_t done, std::size_t all) {
  progress_->setVisible(all > 0);
  if (all > 0) progress_->setValue(static_cast<int>(100 * std::min(done, all) / all));
}

void StatusPanels::mousePressEvent(QMouseEvent*) {
  if (onClick) onClick();
}

void StatusPanels::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), tokens().surface);
  painter.fillRect(0, 0, width(), 1, tokens().line);
  for (const QLabel* panel : panels_)
    if (panel != panels_.front()) painter.fillRect(panel->x() - 1, 5, 1, height() - 9, tokens().line);
}

}  // namespace desktop
