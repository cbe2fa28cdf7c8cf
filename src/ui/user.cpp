#include "ui/user.h"

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "ui/caption.h"
#include "ui/lookup.h"
#include "ui/tree.h"

namespace ui {
namespace {

constexpr int kRowsOfAPage = 10;  // of a list, for PageUp and PageDown

// Runs what is set for the key; a copy of it, since it may set other keys.
bool runs(const std::vector<KeyAction>& keys, Key key) {
  const auto found = std::find_if(keys.begin(), keys.end(), [key](const auto& at) { return at.key == key; });
  if (found == keys.end()) return false;
  const auto action = found->action;
  action();
  return true;
}

bool isPlainButton(const Control& control) {
  const auto* button = dynamic_cast<const Button*>(&control);
  return button && button->role() != Button::Role::main;
}

// The first control of a kind that is visible on a shown page and of which `wanted` holds.
template <class Kind, class Wanted>
Kind* firstShown(const Form& form, const Wanted& wanted) {
  for (Control* control : form.controls())
    if (auto* kind = dynamic_cast<Kind*>(control))
      if (control->enabled() && control->visible() && wanted(*kind) && form.shows(*control)) return kind;
  return nullptr;
}

}  // namespace

bool User::begin() {
  if (!form_.loaded_) {
    form_.loaded_ = true;
    form_.load();
  }
  if (!form_.open_) return false;
  if (form_.focused_) {
    form_.showHint();
    return true;
  }
  const auto order = form_.order();
  const auto first = std::find_if(order.begin(), order.end(), [&](const Control* control) {
    return control->reachable() && !dynamic_cast<const Button*>(control) && form_.shows(*control);
  });
  if (first != order.end())
    form_.setFocus(*first);
  else
    step(1, true);
  return form_.open_;
}

bool User::leave() {
  if (!form_.open_) return false;
  Control* from = form_.focused_;
  if (!from) return true;
  if (auto* field = dynamic_cast<Field*>(from)) {
    const std::string rest = field->mask_.atRest(field->text());
    if (rest != field->text()) field->setText(rest);
    field->completed_ = false;
  }
  const bool stays = from->onLeave && from->onLeave() == Leave::stay;
  if (stays && form_.open_ && form_.focused_ == from) form_.setFocus(from);
  return !stays && form_.open_ && form_.focused_ == from;  // else the unit has sent the focus elsewhere
}

bool User::go(Control& control) {
  if (!form_.open_) return false;
  if (form_.focused_ == &control) {
    form_.bringForward(control);
    return true;
  }
  if (!control.reachable() || !leave() || !control.reachable()) return settled(false);
  form_.setFocus(&control);
  return form_.open_ && form_.focused_ == &control;
}

// A control that was disabled or hidden while it had the focus gives it to the one that follows.
bool User::settled(bool result) {
  Control* focused = form_.focused_;
  if (!form_.open_ || !focused || focused->reachable()) return result;
  const auto order = form_.order();
  const auto at = std::find(order.begin(), order.end(), focused);
  const auto reachable = [](const Control* control) { return control->reachable(); };
  auto next = std::find_if(at, order.end(), reachable);
  if (next == order.end()) next = std::find_if(order.begin(), at, reachable);
  form_.setFocus(next == order.end() || !(*next)->reachable() ? nullptr : *next);
  return result;
}

// The same control now stands for something else, as a cell does on another page.
bool User::reenter(Control& control) {
  form_.focused_ = nullptr;
  form_.setFocus(&control);
  return settled(form_.open_);
}

bool User::goToLine(GridCells& column, int line) {
  Grid& grid = column.grid();
  if (!form_.open_ || line < 1 || line > grid.lines()) return false;
  const int page = (line - 1) / grid.rows();
  Control& cell = column.cell((line - 1) % grid.rows() + 1);
  if (page == grid.page()) return go(cell);
  if (!leave()) return settled(false);
  grid.turnTo(page);
  if (!form_.open_ || !cell.reachable()) return settled(false);
  return reenter(cell) && form_.focused_ == &cell;
}

bool User::step(int way, bool throughButtons) {
  if (!leave()) return settled(false);
  const auto order = form_.order();
  const auto count = static_cast<std::ptrdiff_t>(order.size());
  auto at = std::find(order.begin(), order.end(), form_.focused_) - order.begin();
  if (at == count) at = way > 0 ? -1 : 0;
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    at = (at + way + count) % count;
    Control& control = *order[static_cast<std::size_t>(at)];
    if (!control.reachable() || (!throughButtons && isPlainButton(control))) continue;
    form_.setFocus(&control);
    return settled(form_.open_);
  }
  return settled(false);
}

bool User::enter() { return step(1, false); }
bool User::next() { return step(1, true); }
bool User::previous() { return step(-1, true); }

bool User::key(Key key) {
  if (!form_.open_) return false;
  Control* focused = form_.focused_;
  if (focused && runs(focused->keys_, key)) return settled(true);
  if (runs(form_.keys_, key)) return settled(true);
  if (key == Key::escape) return escape();
  if (focused) return usual(*focused, key);
  return key == Key::enter || key == Key::tab ? next() : key == Key::shiftTab && previous();
}

bool User::escape() {
  for (Control* control : form_.controls_)
    if (auto* button = dynamic_cast<Button*>(control))
      if (button->role() == Button::Role::cancel && button->reachable()) return press(*button);
  return false;
}

bool User::usual(Control& control, Key key) {
  switch (key) {
    case Key::enter:
      return onward(control);
    case Key::tab:
      return next();
    case Key::shiftTab:
      return previous();
    case Key::up:
      return vertical(control, -1);
    case Key::down:
      return vertical(control, 1);
    case Key::pageUp:
      return pageKey(control, -1);
    case Key::pageDown:
      return pageKey(control, 1);
    case Key::backspace:
      return erase(control, true);
    case Key::del:
      return erase(control, false);
    default:
      return false;
  }
}

bool User::onward(Control& control) {
  if (auto* button = dynamic_cast<Button*>(&control)) return press(*button);
  if (auto* memo = dynamic_cast<Memo*>(&control)) return append(*memo, "\n");
  if (auto* list = dynamic_cast<List*>(&control); list && list->onPick && list->selected() >= 0)
    return pick(*list, list->selected());
  return enter();
}

bool User::vertical(Control& control, int way) {
  if (auto* list = dynamic_cast<List*>(&control)) return moveInList(*list, way);
  if (auto* spinner = dynamic_cast<Spin*>(&control)) return spinInPlace(*spinner, -way);
  if (auto* choice = dynamic_cast<Choice*>(&control)) {
    const int to = choice->index() + way;
    return to >= 0 && choose(*choice, to);
  }
  if (dynamic_cast<Memo*>(&control)) return false;
  if (auto* field = dynamic_cast<Field*>(&control); field && browse(*field, way)) return true;
  const Cell cell = cellOf(control);
  return cell.column ? goToLine(*cell.column, cell.column->grid().line(cell.row) + way) : step(way, true);
}

bool User::pageKey(Control& control, int way) {
  if (auto* list = dynamic_cast<List*>(&control)) return moveInList(*list, way * kRowsOfAPage);
  if (auto* spinner = dynamic_cast<Spin*>(&control)) return spinInPlace(*spinner, way);
  const Cell cell = cellOf(control);
  Grid* grid = cell.column && cell.column->grid().pages() > 1
                   ? &cell.column->grid()
                   : firstShown<Grid>(form_, [](const Grid& at) { return at.pages() > 1; });
  if (grid) return turn(*grid, grid->page() + way);
  auto* spinner = firstShown<Spin>(form_, [](const Spin& at) { return at.pages; });
  return spinner && spinInPlace(*spinner, way);
}

bool User::moveInList(List& list, int way) {
  if (list.selected() < 0 && way < 0) list.reaches(-1);
  list.reaches(std::max(0, list.selected() + way));
  const auto count = static_cast<int>(list.rows().count());
  if (count == 0) return false;
  const int from = list.selected() < 0 ? (way > 0 ? -1 : count) : list.selected();
  return select(list, std::clamp(from + way, 0, count - 1));
}

// The focus stays where it is, for what the spin pages may be where it stands.
bool User::spinInPlace(Spin& spinner, int way) {
  const int value = spinner.value() + way;
  Control* focused = form_.focused_;
  if (value < spinner.minimum() || value > spinner.maximum() || !leave()) return settled(false);
  spinner.setValue(value);
  if (spinner.onChange) spinner.onChange();
  return form_.open_ && form_.focused_ == focused ? reenter(*focused) : settled(form_.open_);
}

bool User::alt(std::string_view letter) {
  const std::string wanted = common::upper(letter);
  for (const Mnemonic& mnemonic : mnemonics(form_)) {
    Control& control = *mnemonic.control;
    if (mnemonic.letter != wanted || !control.enabled() || !control.visible() || !form_.shows(control))
      continue;
    if (auto* tabs = dynamic_cast<Tabs*>(&control)) return page(*tabs, mnemonic.option);
    if (auto* button = dynamic_cast<Button*>(&control)) return press(*button);
    if (auto* box = dynamic_cast<Check*>(&control)) return check(*box, !box->on());
    if (auto* choice = dynamic_cast<Choice*>(&control); choice && mnemonic.option >= 0)
      return choose(*choice, mnemonic.option);
    return go(control);
  }
  return false;
}

bool User::press(Button& button) {
  if (!form_.open_ || !button.reachable()) return false;
  if (button.role() == Button::Role::cancel)
    form_.setFocus(&button);
  else if (!go(button))
    return false;
  if (button.onPress) button.onPress();
  return settled(true);
}

bool User::check(Check& box, bool on) {
  if (!go(box)) return false;
  if (box.on() == on) return true;
  box.set(on);
  if (box.onChange) box.onChange();
  return settled(true);
}

bool User::choose(Choice& choice, int index) {
  if (index < -1 || index >= static_cast<int>(choice.items().size()) || !go(choice)) return false;
  if (choice.index() == index) return true;
  choice.select(index);
  if (choice.onChange) choice.onChange();
  return settled(true);
}

bool User::doubleClick(Choice& choice) {
  if (!go(choice)) return false;
  if (choice.onDoubleClick) choice.onDoubleClick();
  return settled(true);
}

bool User::spin(Spin& spinner, int value) {
  if (!go(spinner)) return false;
  if (value < spinner.minimum() || value > spinner.maximum()) {
    form_.desk().beep();
    return false;
  }
  if (spinner.value() == value) return true;
  spinner.setValue(value);
  if (spinner.onChange) spinner.onChange();
  return settled(true);
}

bool User::select(List& list, int row) {
  return select(list, row < 0 ? std::vector<int>() : std::vector<int>{row});
}

bool User::select(List& list, std::vector<int> rows) {
  const bool there =
      std::all_of(rows.begin(), rows.end(), [&list](int row) { return row >= 0 && list.reaches(row); });
  if (!there || (rows.size() > 1 && !list.takesSeveral()) || !go(list)) return false;
  const std::vector<int> before = list.selectedRows();
  list.select(std::move(rows));
  if (list.selectedRows() != before && list.onSelect) list.onSelect();
  return settled(form_.open_);
}

bool User::pick(List& list, int row) {
  if (row < 0 || !select(list, row) || form_.focused_ != &list) return false;
  if (auto* tree = dynamic_cast<Tree*>(&list); tree && tree->hasChildren(row)) return tree->toggle(row), true;
  if (list.onPick) list.onPick();
  return settled(true);
}

bool User::turn(Grid& grid, int page) {
  if (!form_.open_ || page < 0 || page >= grid.pages()) return false;
  if (page == grid.page()) return true;
  Control* focused = form_.focused_;
  const bool inside = focused && &focused->placed() == &grid;
  if (inside && !leave()) return settled(false);
  grid.turnTo(page);
  return inside && form_.open_ && form_.focused_ == focused ? reenter(*focused) : settled(form_.open_);
}

bool User::page(Tabs& tabs, int page) {
  if (!form_.open_ || !tabs.enabled() || !tabs.visible()) return false;
  if (page < 0 || page >= static_cast<int>(tabs.pages().size())) return false;
  if (tabs.current() == page) return true;
  if (Control* first = form_.firstOn(tabs, page)) return go(*first);  // it brings its page forward
  if (!leave()) return settled(false);
  tabs.select(page);
  return true;
}

bool User::close() {
  if (!form_.open_ || !form_.mayClose()) return false;
  form_.close();
  return true;
}

}  // namespace ui
