#include "ui/mask.h"

#include <algorithm>
#include <utility>

#include "common/amount.h"
#include "common/text.h"

namespace ui {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Bytes of the character that begins at `at`, in valid UTF-8.
std::size_t characterSize(std::string_view text, std::size_t at) {
  std::size_t size = 1;
  while (at + size < text.size() && continues(text[at + size])) ++size;
  return size;
}

std::size_t selectionStart(const Edit& edit) { return std::min(edit.cursor, edit.mark); }
std::size_t selectionEnd(const Edit& edit) { return std::max(edit.cursor, edit.mark); }

void dropSelection(Edit& edit) {
  const auto from = selectionStart(edit);
  edit.text.erase(from, selectionEnd(edit) - from);
  edit.cursor = edit.mark = from;
}

// "1.234.567,89" or "1234567,89", with a sign or without; "0.500" is the keypad's way to write 0,500.
bool isItalianNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const auto comma = std::min(text.find(','), text.size());
  const auto whole = text.substr(0, comma), rest = text.substr(std::min(comma + 1, text.size()));
  if (whole.empty() || !std::all_of(rest.begin(), rest.end(), isDigit)) return false;
  const auto first = std::min(whole.find('.'), whole.size());
  const bool grouped = first != whole.size();
  if (grouped && (first < 1 || first > 3 || whole[0] == '0' || (whole.size() - first) % 4 != 0)) return false;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    const bool dot = i >= first && (i - first) % 4 == 0;
    if (dot ? whole[i] != '.' : !isDigit(whole[i])) return false;
  }
  return true;
}

}  // namespace

Mask::Mask(Kind kind, int width, int decimals, std::string_view keys)
    : kind_(kind), width_(width), decimals_(decimals), keys_(keys) {}
Mask::Mask(const Mask&) = default;
Mask& Mask::operator=(const Mask&) = default;
Mask::~Mask() = default;

Mask Mask::text(int width) { return {Kind::text, width}; }
Mask Mask::upper(int width) { return {Kind::upper, width}; }
Mask Mask::password(int width) { return {Kind::password, width}; }
Mask Mask::digits(int width) { return {Kind::digits, width}; }
Mask Mask::integer(int width) { return {Kind::integer, width}; }
Mask Mask::amount(int decimals, int width) { return {Kind::amount, width, decimals}; }
Mask Mask::oneOf(std::string_view keys) { return {Kind::oneOf, 1, 0, keys}; }
Mask Mask::pattern(std::string_view blank) {
  return {Kind::pattern, static_cast<int>(blank.size()), 0, blank};
}

bool Mask::type(Edit& edit, std::string_view key) const {
  if (key.empty()) return false;
  if (kind_ == Kind::pattern) {
    Edit next = edit.text.size() == keys_.size() ? edit : Edit{keys_, 0, 0};
    if (key.size() != 1 || !typePattern(next, key[0])) return false;
    edit = std::move(next);
    return true;
  }
  if (kind_ == Kind::amount) return key.size() == 1 && typeAmount(edit, key[0]);
  if (kind_ == Kind::oneOf) return typeOneOf(edit, key);
  const auto from = selectionStart(edit), to = selectionEnd(edit);
  if (kind_ == Kind::digits || kind_ == Kind::integer) {
    const bool behind = edit.text.find('-', to) != std::string::npos;  // a sign keeps its place in front
    const bool sign = kind_ == Kind::integer && key == "-" && from == 0 && !behind;
    if (!sign && (!isDigit(key[0]) || (from == 0 && behind))) return false;
  }
  const std::string_view text = edit.text;
  if (text.size() - (to - from) >= static_cast<std::size_t>(width_)) {  // no fewer bytes than characters
    const auto kept = common::length(text.substr(0, from)) + common::length(text.substr(to));
    if (kept >= static_cast<std::size_t>(width_)) return false;
  }
  insert(edit, kind_ == Kind::upper ? common::upper(key) : std::string(key));
  return true;
}

bool Mask::typeOneOf(Edit& edit, std::string_view key) const {
  const std::string capital = common::upper(key);
  const std::string_view taken = keys_.find(key) != std::string::npos ? key : capital;
  if (keys_.find(taken) == std::string::npos) return false;
  edit = {std::string(taken), taken.size(), taken.size()};
  return true;
}

void Mask::insert(Edit& edit, std::string_view key) const {
  dropSelection(edit);
  edit.text.insert(edit.cursor, key);
  edit.mark = edit.cursor += key.size();
}

// Whether an amount at rest is no wider than the field and has no decimals beyond those of the mask.
bool Mask::fits(std::string_view amount) const {
  const bool negative = amount.starts_with('-');
  if (negative) amount.remove_prefix(1);
  const auto comma = std::min(amount.find(','), amount.size());
  if (comma < amount.size() && amount.size() - comma - 1 > static_cast<std::size_t>(decimals_)) return false;
  const auto digits = static_cast<int>(
      comma - std::count(amount.begin(), amount.begin() + static_cast<std::ptrdiff_t>(comma), '.'));
  const int dots = digits > 0 ? (digits - 1) / 3 : 0;
  return negative + std::max(digits, 1) + dots + (decimals_ > 0 ? 1 + decimals_ : 0) <= width_;
}

bool Mask::typeAmount(Edit& edit, char key) const {
  Edit next = edit;
  dropSelection(next);
  if (key == '.') key = ',';  // the numeric pad's own decimal key
  const bool sign = key == '-' && next.cursor == 0 && !next.text.starts_with('-');
  const bool behindSign = next.cursor > 0 || !next.text.starts_with('-');
  const bool comma = key == ',' && decimals_ > 0 && next.text.find(',') == std::string::npos;
  if (!sign && !(behindSign && (comma || isDigit(key)))) return false;
  insert(next, {&key, 1});
  if (!fits(next.text)) return false;
  edit = std::move(next);
  return true;
}

bool Mask::takesDigit(std::size_t at) const { return keys_[at] == '_' || isDigit(keys_[at]); }

bool Mask::typePattern(Edit& edit, char key) const {
  if (!isDigit(key)) return endGroup(edit, key);
  auto at = selectionStart(edit);
  while (at < keys_.size() && !takesDigit(at)) ++at;
  if (at >= keys_.size()) return false;
  if (edit.cursor != edit.mark) erase(edit, true);
  edit.text[at++] = key;
  while (at < keys_.size() && !takesDigit(at)) ++at;
  edit.cursor = edit.mark = at;
  return true;
}

// The separator ends the group of digits at the cursor, and they move to the group's right end. Behind
// a group that was just filled the cursor has passed the separator already.
bool Mask::endGroup(Edit& edit, char separator) const {
  const auto at = edit.cursor;
  if (edit.mark != at) return false;
  if (at > 1 && !takesDigit(at - 1) && keys_[at - 1] == separator) return edit.text[at - 2] != '_';
  const auto end = keys_.find(separator, at);
  if (end == std::string::npos) return false;
  auto start = at;
  while (start > 0 && takesDigit(start - 1)) --start;
  if (std::any_of(keys_.begin() + at, keys_.begin() + end, [](char c) { return c != '_' && !isDigit(c); }))
    return false;
  if (at == start && edit.text.find('_', start) < end) return false;
  if (at > start) {
    const std::string typed = edit.text.substr(start, at - start);
    edit.text.replace(start, end - start, common::zeroFill(typed, end - start));
  }
  edit.cursor = edit.mark = end + 1;
  return true;
}

bool Mask::erase(Edit& edit, bool backwards) const {
  auto from = selectionStart(edit), to = selectionEnd(edit);
  if (from == to) {
    if (backwards ? from == 0 : to >= edit.text.size()) return false;
    if (backwards) do
        --from;
      while (from > 0 && continues(edit.text[from]));
    else
      do ++to;
      while (to < edit.text.size() && continues(edit.text[to]));
    if (kind_ == Kind::pattern && backwards)
      while (from > 0 && !takesDigit(from)) --from, --to;
  }
  if (kind_ == Kind::pattern)
    for (auto i = from; i < to && i < keys_.size(); ++i) edit.text[i] = keys_[i];
  else
    edit.text.erase(from, to - from);
  edit.cursor = edit.mark = from;
  return true;
}

bool Mask::enter(Edit& edit, std::string_view text) const {
  edit = {keys_, 0, 0};
  if (kind_ != Kind::pattern) edit.text.clear();
  if (kind_ == Kind::text || kind_ == Kind::upper || kind_ == Kind::password) {
    const std::string clean = common::cleaned(text);
    edit.text =
        common::cut(kind_ == Kind::upper ? common::upper(clean) : clean, static_cast<std::size_t>(width_));
    edit.cursor = edit.mark = edit.text.size();
    return edit.text.size() == clean.size();
  }
  if (kind_ == Kind::amount && isItalianNumber(text) && fits(text)) {
    edit = {std::string(text), text.size(), text.size()};
    return true;
  }
  bool whole = true;
  const std::string keys = keysOf(text);
  for (std::size_t at = 0; at < keys.size();) {
    const auto size = characterSize(keys, at);
    whole &= type(edit, std::string_view(keys).substr(at, size));
    at += size;
  }
  return whole;
}

std::string Mask::keysOf(std::string_view text) const {
  std::string keys = common::cleaned(text);
  if (kind_ == Kind::amount && isItalianNumber(keys)) std::erase(keys, '.');
  return keys;
}

std::string_view Mask::blank() const { return kind_ == Kind::pattern ? std::string_view(keys_) : ""; }

bool Mask::isBlank(std::string_view text) const {
  if (text.empty()) return true;
  if (kind_ != Kind::pattern || text.size() != keys_.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != keys_[i] && !(takesDigit(i) && text[i] == '_')) return false;
  return true;
}

// A year of which two digits were typed over the mask's own four: those below 50 are of this century.
std::string Mask::wholeYear(std::string_view text) const {
  std::string date(text);
  const bool isDate = keys_.size() == 10 && keys_[2] == '/' && keys_[5] == '/' && text.size() == keys_.size();
  if (!isDate || !isDigit(date[6]) || !isDigit(date[7]) || text.substr(8) != keys_.substr(8)) return date;
  const std::string century = date.substr(6, 2);
  if (century == "19" || century == "20") return date;
  return date.substr(0, 6) + (century < "50" ? "20" : "19") + century;
}

std::string Mask::atRest(std::string_view text) const {
  if (kind_ == Kind::pattern) return wholeYear(text);
  const bool number = kind_ == Kind::amount || kind_ == Kind::integer;
  if (number && std::none_of(text.begin(), text.end(), isDigit)) return {};
  if (kind_ != Kind::amount) return std::string(text);
  return common::toText(common::toNumber(text), decimals_);
}

std::string Mask::shown(std::string_view text) const {
  if (kind_ != Kind::password) return std::string(text);
  std::string dots;
  for (auto left = common::length(text); left > 0; --left) dots += "\u2022";
  return dots;
}

}  // namespace ui
