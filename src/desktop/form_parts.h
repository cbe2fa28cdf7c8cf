// Small widgets that forms are drawn with.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <functional>
#include <string>

namespace desktop {

QLabel* captionLabel(const std::string& caption);

// A box with a title, in which controls stand together.
class GroupCard : public QWidget {
 public:
  explicit GroupCard(const QString& title);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
};

// A value that is shown and never entered.
class ValueLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A wheel that turns over the form while another control has the focus changes nothing.
class Combo : public QComboBox {
 public:
  std::function<void()> onDoubleClick;  // when set, a single click waits for the second one before it opens

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  bool twice_ = false;
};

class SpinField : public QSpinBox {
 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace desktop
