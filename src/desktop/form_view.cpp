#include "desktop/form_view.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSpinBox>
#include <QTextEdit>
#include <QTimer>

#include "common/text.h"
#include "desktop/field_edit.h"
#include "desktop/form_builder.h"
#include "desktop/form_keys.h"
#include "desktop/grid_view.h"
#include "desktop/words.h"
#include "ui/caption.h"
#include "ui/lookup.h"

namespace desktop {
namespace {

std::string letterOf(const QKeyEvent& event) {
  if (!(event.modifiers() & Qt::AltModifier) || event.key() <= Qt::Key_Space || event.key() > 0xFF) return {};
  return utf8(QString(QChar(event.key())));
}

// A press of these acts by itself, and leaves the focused control on its way.
bool actsByItself(const ui::Control& control) {
  return dynamic_cast<const ui::Button*>(&control) || dynamic_cast<const ui::Check*>(&control) ||
         dynamic_cast<const ui::Grid*>(&control) ||
         (dynamic_cast<const ui::Choice*>(&control) &&
          static_cast<const ui::Choice&>(control).look() == ui::Choice::Look::options);
}

// What is typed looks for an item, ticks the box, presses the button.
bool typesByItself(const ui::Control& control) {
  return dynamic_cast<const ui::Choice*>(&control) || dynamic_cast<const ui::Check*>(&control) ||
         dynamic_cast<const ui::Button*>(&control);
}

// The keys by which one moves and writes within notes stay with their editor.
bool belongsToNotes(ui::Key key) {
  switch (key) {
    case ui::Key::enter:
    case ui::Key::up:
    case ui::Key::down:
    case ui::Key::pageUp:
    case ui::Key::pageDown:
    case ui::Key::backspace:
    case ui::Key::del:
      return true;
    default:
      return key >= ui::Key::ctrlA;
  }
}

// Never asked of a widget that stands as it should: showing one means laying out all. One that nobody has
// shown or hidden yet follows its parent, which has to be forbidden to a hidden one.
void showOrHide(QWidget& widget, bool visible) {
  const bool told = widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
  if (told ? widget.isHidden() == visible : !visible) widget.setVisible(visible);
}

}  // namespace

FormView::FormView(ui::Form& form, QWidget* parent) : QWidget(parent), form_(form), user_(form) {
  setFocusPolicy(Qt::StrongFocus);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  setWindowTitle(text(form.title()));
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(12, 12, 12, 12);
  outer->addWidget(FormBuilder(*this).build(form.arranged()));
  form_.setView(this);
}

FormView::~FormView() { form_.setView(nullptr); }

void FormView::bind(const ui::Control& control, QWidget* widget, std::function<void()> pull,
                    QWidget* caption) {
  own(widget, control);
  bound_[&control] = {widget, caption, std::move(pull)};
  if (auto* label = qobject_cast<QLabel*>(caption)) label->setBuddy(widget);
  widget->setAccessibleName(text(ui::plainCaption(control.caption())));
  refresh(control);
}

void FormView::own(QWidget* widget, const ui::Control& control) {
  if (owners_.emplace(widget, &control).second) widget->installEventFilter(this);
}

QWidget* FormView::widgetOf(const ui::Control& control) const {
  const auto found = bound_.find(&control);
  return found == bound_.end() ? nullptr : found->second.widget.data();
}

// A grid and its editor stand for the cell that is being entered.
ui::Control* FormView::controlOf(const QObject* widget) const {
  if (const auto* edit = dynamic_cast<const FieldEdit*>(widget)) return &edit->field();
  if (const auto* grid = dynamic_cast<const GridView*>(widget)) return grid->entered();
  const auto found = owners_.find(widget);
  return found == owners_.end() ? nullptr : const_cast<ui::Control*>(found->second);
}

void FormView::refresh(const ui::Control& control) {
  const auto found = bound_.find(&control);
  if (found == bound_.end() || !found->second.widget) return;
  const Bound& bound = found->second;
  bound.pull();
  if (&control.placed() == &control) {
    bound.widget->setEnabled(control.enabled());
    showOrHide(*bound.widget, control.visible());
  }
  if (auto* label = qobject_cast<QLabel*>(bound.caption)) {
    label->setText(text(control.caption()));
    showOrHide(*label, control.visible());
  }
}

void FormView::setInFront(bool front) {
  inFront_ = front;
  if (!front || !form_.isOpen()) return;
  form_.showHint();
  takeKeyboard();
}

void FormView::focusMoved() {
  if (inFront_) takeKeyboard();
  if (onFocus) onFocus();
}

void FormView::takeKeyboard() {
  ui::Control* control = form_.focused();
  QWidget* widget = control ? widgetOf(*control) : nullptr;
  for (auto* table : findChildren<QWidget*>())
    if (auto* grid = dynamic_cast<GridView*>(table); grid && grid != widget) grid->leave();
  if (!widget) return setFocus(Qt::OtherFocusReason);
  if (auto* grid = dynamic_cast<GridView*>(widget)) widget = &grid->enter(*control);
  widget->setFocus(Qt::OtherFocusReason);
  if (auto* edit = dynamic_cast<FieldEdit*>(widget)) edit->pull();
}

void FormView::closed() {
  if (onClosed) onClosed();
}

bool FormView::isMnemonic(const QKeyEvent& event) const {
  const std::string letter = common::upper(letterOf(event));
  if (letter.empty()) return false;
  for (const ui::Mnemonic& mnemonic : ui::mnemonics(form_))
    if (mnemonic.letter == letter && mnemonic.control->reachable() && form_.shows(*mnemonic.control))
      return true;
  return false;
}

bool FormView::keyPressed(ui::Control* control, const QKeyEvent& event) {
  if (isMnemonic(event)) {
    user_.alt(letterOf(event));
    return true;
  }
  const auto key = keyOf(event);
  if (!key || (dynamic_cast<ui::Memo*>(control) && belongsToNotes(*key))) return false;
  if (auto* spin = dynamic_cast<ui::Spin*>(control)) {
    if (*key == ui::Key::backspace || *key == ui::Key::del) return false;
    static_cast<QSpinBox*>(widgetOf(*spin))->interpretText();
  }
  return user_.key(*key);
}

// False: the click is not for the widget, since the form keeps the focus where it is.
bool FormView::pressed(ui::Control& control, const QObject* watched) {
  if (!control.takesFocus() || actsByItself(control) || dynamic_cast<const GridView*>(watched)) return true;
  return user_.go(control);
}

void FormView::focusArrived(ui::Control& control) {
  if (form_.focused() == &control || !control.takesFocus()) return;
  // The toolkit passes the focus around on its own; only where it comes to rest counts.
  QTimer::singleShot(0, this, [this, &control] {
    if (!form_.isOpen() || controlOf(QApplication::focusWidget()) != &control || form_.focused() == &control)
      return;
    if (!user_.go(control)) takeKeyboard();
  });
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  ui::Control* control = controlOf(watched);
  if (!control || !form_.isOpen()) return QWidget::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::ShortcutOverride: {  // the form's letters and keys before those of the menus
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (!isMnemonic(key)) break;
      event->accept();
      return true;
    }
    case QEvent::KeyPress: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (keyPressed(control, key)) return true;
      const bool writes =
          !key.text().isEmpty() && key.text().at(0).isPrint() && !(key.modifiers() & Qt::AltModifier);
      if (writes && typesByItself(*control)) return user_.type(utf8(key.text()));
      break;
    }
    case QEvent::MouseButtonPress:
      if (!pressed(*control, watched)) return true;
      break;
    case QEvent::FocusIn:
      focusArrived(*control);
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void FormView::keyPressEvent(QKeyEvent* event) {
  if (form_.isOpen() && keyPressed(form_.focused(), *event)) return;
  QWidget::keyPressEvent(event);
}

}  // namespace desktop
