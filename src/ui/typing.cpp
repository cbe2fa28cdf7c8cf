// The part of User that enters text: keys through masks, completion, notes.
#include <algorithm>
#include <utility>

#include "common/text.h"
#include "ui/caption.h"
#include "ui/user.h"

namespace ui {
namespace {

std::string_view characterAt(std::string_view text, std::size_t at) {
  std::size_t size = 1;
  while (at + size < text.size() && (static_cast<unsigned char>(text[at + size]) & 0xC0) == 0x80) ++size;
  return text.substr(at, size);
}

std::size_t border(const std::string& text, std::size_t at) {
  at = std::min(at, text.size());
  while (at > 0 && at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
  return at;
}

Edit atEnd(const std::string& text) { return {text, text.size(), text.size()}; }

}  // namespace

bool User::set(Field& field, std::string_view text) {
  if (!go(field)) return false;
  Edit edit;
  if (!field.mask_.enter(edit, text)) form_.desk().beep();
  take(field, std::move(edit));
  return settled(true);
}

bool User::set(Memo& memo, std::string_view text) {
  if (!go(memo) || memo.readOnly()) return false;
  memo.text_ = RichText();
  return append(memo, text);
}

bool User::type(std::string_view keys) {
  if (!form_.open_ || !form_.focused_) return false;
  if (auto* memo = dynamic_cast<Memo*>(form_.focused_)) return append(*memo, keys);
  const auto* field = dynamic_cast<Field*>(form_.focused_);
  const std::string clean = field ? field->mask_.keysOf(keys) : common::cleaned(keys);
  bool taken = true;
  for (std::size_t at = 0; at < clean.size() && taken;) {
    const auto key = characterAt(clean, at);
    if (!form_.open_ || !form_.focused_) break;
    taken = typeInto(*form_.focused_, key);
    at += key.size();
  }
  return taken && settled(true);
}

// False: the control has no use for text. A key that its mask refuses is used up by the beep.
bool User::typeInto(Control& control, std::string_view key) {
  if (auto* field = dynamic_cast<Field*>(&control)) return strike(*field, key), true;
  if (auto* memo = dynamic_cast<Memo*>(&control)) return append(*memo, key);
  if (auto* choice = dynamic_cast<Choice*>(&control)) return chooseByLetter(*choice, key);
  if (auto* box = dynamic_cast<Check*>(&control); box && key == " ") return check(*box, !box->on());
  if (auto* button = dynamic_cast<Button*>(&control); button && key == " ") return press(*button);
  return false;
}

bool User::strike(Field& field, std::string_view key) {
  Edit next = field.completed_ ? atEnd(field.typed_) : field.edit_;
  if (!field.mask_.type(next, key)) {
    form_.desk().beep();
    return false;
  }
  complete(field, next);
  take(field, std::move(next));
  return true;
}

// What the completion adds is selected, so that the next key replaces it. It may spell otherwise what was
// typed, the last character included.
void User::complete(Field& field, Edit& edit) {
  field.completed_ = false;
  if (!field.complete || edit.cursor != edit.text.size()) return;
  std::string whole = common::cleaned(field.complete(edit.text));
  const auto typed = common::length(edit.text), all = common::length(whole);
  if (all < typed || whole == edit.text || all > static_cast<std::size_t>(field.mask_.width())) return;
  field.typed_ = std::exchange(edit.text, std::move(whole));
  field.completed_ = true;
  edit.cursor = common::cut(edit.text, typed).size();
  edit.mark = edit.text.size();
}

void User::take(Field& field, Edit edit) {
  const bool differs = edit.text != field.edit_.text;
  field.edit_ = std::move(edit);
  field.changed();
  if (differs && field.onChange) field.onChange();
}

bool User::browse(Field& field, int way) {
  if (!field.completed_ || !field.browse) return false;
  const std::string shown = common::cleaned(field.browse(field.typed_, field.text(), way));
  const auto typed = common::length(field.typed_), all = common::length(shown);
  if (all < typed || shown.empty() || all > static_cast<std::size_t>(field.mask_.width())) return false;
  take(field, {shown, common::cut(shown, typed).size(), shown.size()});
  return true;
}

bool User::erase(Control& control, bool backwards) {
  if (auto* memo = dynamic_cast<Memo*>(&control)) {
    if (!backwards || memo->readOnly() || !memo->text_.eraseLast()) return false;
    memo->changed();
    if (memo->onChange) memo->onChange();
    return settled(true);
  }
  auto* field = dynamic_cast<Field*>(&control);
  if (!field) return false;
  const bool typedKey = backwards && (field->completed_ || field->edit_.cursor == field->edit_.mark);
  Edit next = backwards && field->completed_ ? atEnd(field->typed_) : field->edit_;
  if (!field->mask_.erase(next, backwards)) return false;
  field->completed_ = false;
  if (typedKey) complete(*field, next);
  take(*field, std::move(next));
  return settled(true);
}

bool User::paste(std::string_view text) {
  if (!form_.open_ || !form_.focused_) return false;
  if (auto* memo = dynamic_cast<Memo*>(form_.focused_)) return append(*memo, text);
  auto* field = dynamic_cast<Field*>(form_.focused_);
  if (!field) return false;
  const std::string keys = field->mask_.keysOf(text);
  Edit next = field->edit_;
  bool whole = true;
  for (std::size_t at = 0; at < keys.size();) {
    const auto key = characterAt(keys, at);
    whole &= field->mask_.type(next, key);
    at += key.size();
  }
  field->completed_ = false;
  if (!whole) form_.desk().beep();
  take(*field, std::move(next));
  return settled(true);
}

void User::select(Field& field, std::size_t cursor, std::size_t mark) {
  field.completed_ = false;
  field.edit_.cursor = border(field.text(), cursor);
  field.edit_.mark = border(field.text(), mark);
  field.changed();
}

// Beyond the limit the rest is left out with a beep.
bool User::append(Memo& memo, std::string_view text) {
  if (memo.readOnly()) return false;
  memo.text_.append(text);
  if (memo.text_.length() > static_cast<std::size_t>(memo.limit())) {
    memo.text_.truncate(static_cast<std::size_t>(memo.limit()));
    form_.desk().beep();
  }
  memo.changed();
  if (memo.onChange) memo.onChange();
  return settled(true);
}

void User::edited(Memo& memo, std::string_view text) {
  if (memo.readOnly()) return;
  const std::string before = memo.text();
  memo.setText(text);
  if (memo.text() != before && memo.onChange) memo.onChange();
}

bool User::chooseByLetter(Choice& choice, std::string_view letter) {
  const auto count = static_cast<int>(choice.items().size());
  const std::string wanted = common::upper(letter);
  for (int i = 1; i <= count; ++i) {
    const int index = (choice.index() + i + count) % count;
    if (foldedCaption(choice.items()[static_cast<std::size_t>(index)]).starts_with(wanted))
      return choose(choice, index);
  }
  form_.desk().beep();
  return true;
}

}  // namespace ui
