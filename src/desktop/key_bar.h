// The bar that names the keys of the form or preview in front, and presses them for whoever prefers the
// mouse.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class QHBoxLayout;

namespace desktop {

class FormView;

struct BarKey {
  QString name, word;  // "F5", "ricerca facilitata"
  std::function<void()> press;
};

class KeyBar : public QWidget {
 public:
  explicit KeyBar(QWidget* parent = nullptr);
  // Of the control that has the focus in `view`; null: of no form.
  void showKeysOf(FormView* view);
  // Of a window that is no form; `owner` tells the windows with equal keys apart.
  void show(const void* owner, std::vector<BarKey> keys);
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
