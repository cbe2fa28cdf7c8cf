// A field of a form as a line edit. The text is the model's: every key goes through the user's hands, so that
// masks and completion act as they do without a screen; the widget shows what came of it.
#pragma once

#include <QLineEdit>

#include "ui/user.h"

namespace desktop {

class FieldEdit : public QLineEdit {
 public:
  FieldEdit(ui::Field& field, ui::User& user, QWidget* parent = nullptr);

  ui::Field& field() const { return *field_; }
  void showField(ui::Field& field);  // another one, as the editor of a grid does
  void pull();                       // the model's text, and its selection while it has the form's focus

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void pushSelection();
  void paste(const QString& text);
  void cut();
  int shownAt(std::size_t byte) const;
  std::size_t byteAt(int shown) const;

  ui::Field* field_;
  ui::User& user_;
  bool pulling_ = false;
};

}  // namespace desktop
