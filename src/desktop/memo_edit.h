// Notes: several lines, with a bar for bold, italic, underlined words and fonts where the memo is a rich one.
#pragma once

#include <QTextEdit>

#include "ui/user.h"

class QTextDocument;

namespace desktop {

// The document in the subset of HTML that notes are kept in (ui/rich_text.h).
std::string htmlOf(const QTextDocument& document);

class MemoEdit : public QWidget {
 public:
  MemoEdit(ui::Memo& memo, ui::User& user, QWidget* parent = nullptr);

  QTextEdit& editor() const { return *editor_; }
  void pull();

 private:
  QWidget* makeBar();
  void push();
  std::string entered() const;

  ui::Memo& memo_;
  ui::User& user_;
  QTextEdit* editor_;
  bool pulling_ = false;
};

}  // namespace desktop
