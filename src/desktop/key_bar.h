// The bar that names the function keys of the form in front, and presses them for whoever prefers the mouse.
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace desktop {

class FormView;

class KeyBar : public QWidget {
 public:
  explicit KeyBar(QWidget* parent = nullptr);
  // Of the control that has the focus in `view`; null: of no form.
  void showKeysOf(FormView* view);
  std::function<void()> onHelp;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void add(const QString& key, const QString& word, std::function<void()> press);
  void clear();

  QHBoxLayout* line_;
  QString shown_;  // the keys that stand in the bar, to leave it alone while they stay the same
};

}  // namespace desktop
