#include "driver/commands.h"
#include "driver/driver.h"
#include "driver/words.h"
#include "ui/key.h"
#include "ui/lookup.h"
#include "ui/user.h"

namespace driver::command {
namespace {

// The control that a word names in the top form; the call has failed when there is none. A grid is none: it
// shows by its cells alone.
ui::Found named(Call& call, const std::string& name) {
  ui::Form* form = call.form();
  if (!form) return {};
  const ui::Found found = ui::find(*form, name);
  if (found.control && !found.control->kind().empty()) return found;
  call.fail("no such control: " + name);
  return {};
}

// Whether the user can act on it; a cell is judged where it stands, the line that it shows later is not
// there yet.
bool inReach(Call& call, const ui::Control& control) {
  if (!control.visible())
    call.fail("invisible: " + control.name());
  else if (!control.enabled())
    call.fail("disabled: " + control.name());
  return control.visible() && control.enabled();
}

// Moves the focus to what was found, on its page; false when it is out of reach or the focus stays.
bool go(Call& call, const ui::Found& found) {
  ui::User user(found.control->form());
  if (!found.onOtherPage()) return inReach(call, *found.control) && user.go(*found.control);
  if (user.goToLine(*found.column, found.line)) return true;
  if (!found.onOtherPage()) inReach(call, *found.control);
  return false;
}

// The control of one kind that a word names, ready to be acted on.
template <class Kind>
Kind* ready(Call& call, const std::string& name) {
  const ui::Found found = named(call, name);
  if (!found.control) return nullptr;
  auto* control = dynamic_cast<Kind*>(found.control);
  if (!control) {
    call.fail("not for a control of this kind: " + name);
    return nullptr;
  }
  return (found.onOtherPage() ? go(call, found) : inReach(call, *control)) ? control : nullptr;
}

void choose(Call& call, ui::Choice& choice, const std::string& item) {
  const int index = ui::itemOf(choice, item);
  if (index < 0) return call.fail("no such item: " + item);
  ui::User(choice.form()).choose(choice, index);
}

void mark(Call& call, ui::List& list, std::size_t firstWord) {
  if (call.size() > firstWord + 1 && !list.takesSeveral()) return call.fail("the list takes one mark");
  std::vector<int> rows;
  for (std::size_t i = firstWord; i < call.size(); ++i) {
    rows.push_back(ui::rowOf(list, call.word(i)));
    if (rows.back() < 0) return call.fail("no such row: " + call.word(i));
  }
  ui::User(list.form()).select(list, std::move(rows));
}

// Items for a combo, an option group or a list, from the third word on; none clears the choice.
void pickItems(Call& call, ui::Control& control) {
  auto* choice = dynamic_cast<ui::Choice*>(&control);
  auto* list = dynamic_cast<ui::List*>(&control);
  if (!choice && !list) return call.fail("nothing to pick from: " + control.name());
  if (!inReach(call, control)) return;
  if (list) return mark(call, *list, 2);
  if (call.size() > 3) return call.fail("one item alone can be chosen");
  if (call.size() == 3) return choose(call, *choice, call.word(2));
  ui::User(control.form()).choose(*choice, -1);
}

}  // namespace

void set(Call& call) {
  const ui::Found found = named(call, call.word(1));
  if (!found.control) return;
  auto* field = dynamic_cast<ui::Field*>(found.control);
  auto* memo = dynamic_cast<ui::Memo*>(found.control);
  if (!field && !memo) return pickItems(call, *found.control);
  if (!go(call, found)) return;
  ui::User user(found.control->form());
  if (field)
    user.set(*field, call.word(2));
  else
    user.set(*memo, call.word(2));
}

void type(Call& call) {
  ui::Form* form = call.form();
  if (!form) return;
  if (!form->focused()) return call.fail("nothing has the focus");
  if (!ui::User(*form).type(call.word(1))) call.fail("takes no text: " + form->focused()->name());
}

void key(Call& call) {
  ui::Form* form = call.form();
  if (!form) return;
  const auto key = ui::parseKey(call.word(1));
  if (!key) return call.fail("no such key: " + call.word(1));
  ui::User(*form).key(*key);
}

void focus(Call& call) {
  const ui::Found found = named(call, call.word(1));
  if (!found.control) return;
  if (!found.control->takesFocus()) return call.fail("takes no focus: " + call.word(1));
  go(call, found);
}

void leave(Call& call) {
  if (ui::Form* form = call.form()) ui::User(*form).next();
}

void press(Call& call) {
  if (auto* button = ready<ui::Button>(call, call.word(1))) ui::User(button->form()).press(*button);
}

void check(Call& call) {
  const bool on = call.word(2) == "on";
  if (!on && call.word(2) != "off") return call.fail("neither on nor off: " + call.word(2));
  if (auto* box = ready<ui::Check>(call, call.word(1))) ui::User(box->form()).check(*box, on);
}

void pick(Call& call) {
  const ui::Found found = named(call, call.word(1));
  if (!found.control) return;
  if (found.option < 0) return pickItems(call, *found.control);
  if (call.size() > 2) return call.fail("an option holds no items: " + call.word(1));
  if (inReach(call, *found.control))
    ui::User(found.control->form()).choose(static_cast<ui::Choice&>(*found.control), found.option);
}

void openRow(Call& call) {
  const ui::Found found = call.size() == 2 ? named(call, call.word(1)) : ui::Found();
  if (auto* combo = dynamic_cast<ui::Choice*>(found.control); combo && inReach(call, *combo))
    return void(ui::User(combo->form()).doubleClick(*combo));
  auto* list = ready<ui::List>(call, call.word(1));
  if (!list) return;
  const int row = ui::rowOf(*list, call.word(2));
  if (row < 0) return call.fail("no such row: " + call.word(2));
  ui::User(list->form()).pick(*list, row);
}

void cell(Call& call) {
  if (named(call, call.word(1)).control) call.fail("no table: " + call.word(1));
}

void spin(Call& call) {
  const auto value = wholeNumber(call.word(2));
  if (!value) return call.fail("no number: " + call.word(2));
  if (auto* box = ready<ui::Spin>(call, call.word(1))) ui::User(box->form()).spin(*box, *value);
}

void tab(Call& call) {
  ui::Form* form = call.form();
  if (!form) return;
  const ui::FoundPage found = ui::findPage(*form, call.word(1));
  if (!found.tabs) return call.fail("no such page: " + call.word(1));
  if (inReach(call, *found.tabs)) ui::User(*form).page(*found.tabs, found.page);
}

}  // namespace driver::command
