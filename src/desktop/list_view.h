// A list of a form. It asks the rows only for the cells in sight, so that a million rows cost what twenty do.
#pragma once

#include <QTableView>

#include "ui/user.h"

namespace ui {
class Tree;
}

namespace desktop {

class ListView : public QTableView {
 public:
  ListView(ui::List& list, ui::User& user, QWidget* parent = nullptr);

  void pull();  // rows and selection as the model has them
  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Model;
  void push();  // the selection made by the mouse
  bool steps(ui::Tree& tree, int key);
  int chars(int count) const;

  ui::List& list_;
  ui::User& user_;
  Model* model_;
  const ui::Rows* shown_ = nullptr;
  bool pulling_ = false;
};

}  // namespace desktop
