// The status bar of eight panels; the second one takes what room is left.
#pragma once

#include <QStatusBar>
#include <array>
#include <functional>

class QLabel;
class QProgressBar;

namespace desktop {

class StatusPanels : public QStatusBar {
 public:
  StatusPanels();
  void setPanel(int panel, const QString& words);  // 1 to 8; any other is passed over
  QString panel(int panel) const;
  std::function<void()> onClick;

  // A bar in the last but one place while a long operation runs; `all` 0 takes it away.
  void showProgress(std::size_t done, std::size_t all);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  std::array<QLabel*, 8> panels_{};
  QProgressBar* progress_;
};

}  // namespace desktop
