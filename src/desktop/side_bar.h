// The side bar: groups of keys, of which one is unfolded.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <string_view>
#include <vector>

class QToolButton;

namespace desktop {

class SideBar : public QWidget {
 public:
  // `choose` is called with the name of the key; `available` tells whether it does anything.
  SideBar(std::function<void(std::string_view)> choose,
          const std::function<bool(std::string_view)>& available);
  void unfold(int group);
  int unfolded() const { return unfolded_; }
  void setPicture(const QString& path);  // behind the keys; one that does not load counts as none

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Group {
    QToolButton* head;
    QWidget* keys;
  };
  QWidget* makeKeys(const std::vector<std::string_view>& names,
                    const std::function<bool(std::string_view)>& available);

  std::function<void(std::string_view)> choose_;
  std::vector<Group> groups_;
  int unfolded_ = 0;
  QPixmap picture_;
};

}  // namespace desktop
