#include "desktop/field_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include "common/text.h"
#include "desktop/words.h"

namespace desktop {
namespace {

bool writes(const QKeyEvent& event) {
  return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
         !event.text().isEmpty() && event.text().at(0).isPrint();
}

bool moves(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
      return !(event.modifiers() & Qt::AltModifier);
    default:
      return event.matches(QKeySequence::SelectAll);
  }
}

}  // namespace

FieldEdit::FieldEdit(ui::Field& field, ui::User& user, QWidget* parent)
    : QLineEdit(parent), field_(&field), user_(user) {
  setAcceptDrops(false);
  setDragEnabled(false);
  setTextMargins(3, 0, 3, 0);
  const auto push = [this] { pushSelection(); };
  connect(this, &QLineEdit::selectionChanged, this, push);
  connect(this, &QLineEdit::cursorPositionChanged, this, push);
  showField(field);
}

void FieldEdit::showField(ui::Field& field) {
  field_ = &field;
  setAlignment((field.mask().alignsRight() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  setInputMethodHints(field.mask().isSecret() ? Qt::ImhHiddenText | Qt::ImhSensitiveData : Qt::ImhNone);
  pull();
}

int FieldEdit::shownAt(std::size_t byte) const {
  const std::string_view before = std::string_view(field_->text()).substr(0, byte);
  return field_->mask().isSecret() ? static_cast<int>(common::length(before))
                                   : static_cast<int>(desktop::text(before).size());
}

std::size_t FieldEdit::byteAt(int shown) const {
  if (field_->mask().isSecret()) return common::cut(field_->text(), static_cast<std::size_t>(shown)).size();
  return utf8(desktop::text(field_->text()).left(shown)).size();
}

void FieldEdit::pull() {
  const QScopedValueRollback guard(pulling_, true);
  const QString shown = desktop::text(field_->shown());
  if (QLineEdit::text() != shown) setText(shown);
  if (field_->form().focused() != field_) return deselect();
  const int cursor = shownAt(field_->edit().cursor), mark = shownAt(field_->edit().mark);
  if (cursor == mark) {
    deselect();
    setCursorPosition(cursor);
  } else {
    setSelection(mark, cursor - mark);
  }
}

// The user moved the cursor or marked text by the widget's own keys or the mouse.
void FieldEdit::pushSelection() {
  if (pulling_ || field_->form().focused() != field_) return;
  const QScopedValueRollback guard(pulling_, true);
  const int cursor = cursorPosition();
  int mark = cursor;
  if (hasSelectedText()) mark = selectionStart() == cursor ? selectionEnd() : selectionStart();
  user_.select(*field_, byteAt(cursor), byteAt(mark));
}

void FieldEdit::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & Qt::AltModifier) return event->ignore();  // a letter of the menu bar
  if (writes(*event)) {
    user_.type(utf8(event->text()));
  } else if (moves(*event) || event->matches(QKeySequence::Copy)) {
    return QLineEdit::keyPressEvent(event);
  } else if (event->matches(QKeySequence::Paste)) {
    paste(QApplication::clipboard()->text());
  } else if (event->matches(QKeySequence::Cut)) {
    cut();
  } else {
    return event->ignore();
  }
  event->accept();
}

void FieldEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) user_.type(utf8(event->commitString()));
  event->accept();
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) return QLineEdit::mouseReleaseEvent(event);
  if (QApplication::clipboard()->supportsSelection())
    paste(QApplication::clipboard()->text(QClipboard::Selection));
}

void FieldEdit::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  const bool marked = hasSelectedText() && !field_->mask().isSecret();
  menu.addAction("&Taglia\tCtrl+X", this, [this] { cut(); })->setEnabled(marked);
  menu.addAction("&Copia\tCtrl+C", this, [this] { copy(); })->setEnabled(marked);
  menu.addAction("&Incolla\tCtrl+V", this, [this] { paste(QApplication::clipboard()->text()); });
  menu.addSeparator();
  menu.addAction("&Seleziona tutto\tCtrl+A", this, [this] { selectAll(); });
  menu.exec(event->globalPos());
}

void FieldEdit::paste(const QString& text) {
  if (field_->form().focused() == field_) user_.paste(utf8(text));
}

void FieldEdit::cut() {
  if (!hasSelectedText() || field_->mask().isSecret()) return;
  copy();
  user_.key(ui::Key::del);
}

}  // namespace desktop
