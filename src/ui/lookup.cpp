#include "ui/lookup.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "common/text.h"
#include "ui/caption.h"

namespace ui {
namespace {

std::optional<int> number(std::string_view digits) {
  int value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const bool whole = !digits.empty() && read.ec == std::errc() && read.ptr == digits.data() + digits.size();
  return whole && digits[0] != '-' ? std::optional(value) : std::nullopt;
}

Found named(Control& control) {
  const Cell cell = cellOf(control);
  return {&control, -1, cell.column, cell.column ? cell.column->grid().line(cell.row) : 0};
}

// "conto(21)" on whatever page of its grid.
Found cellNamed(const Form& form, std::string_view name) {
  const auto open = name.rfind('(');
  if (open == std::string_view::npos || !name.ends_with(')')) return {};
  const auto line = number(name.substr(open + 1, name.size() - open - 2));
  const std::string column = common::upper(name.substr(0, open));
  for (Control* control : form.controls()) {
    const auto* grid = dynamic_cast<Grid*>(control);
    if (!grid || !line || *line < 1 || *line > grid->lines()) continue;
    for (GridCells* at : grid->columns())
      if (common::upper(at->name()) == column)
        return {&at->cell((*line - 1) % grid->rows() + 1), -1, at, *line};
  }
  return {};
}

// An option that bears a name of its own.
Found itemNamed(const Form& form, const std::string& folded) {
  for (Control* control : form.controls()) {
    const auto* choice = dynamic_cast<Choice*>(control);
    if (!choice) continue;
    for (std::size_t i = 0; i < choice->itemNames().size(); ++i)
      if (common::upper(choice->itemNames()[i]) == folded) return {control, static_cast<int>(i), nullptr, 0};
  }
  return {};
}

Found byName(const Form& form, std::string_view name) {
  for (Control* control : form.controls())
    if (control->name() == name) return named(*control);
  const std::string folded = common::upper(name);
  for (Control* control : form.controls())
    if (common::upper(control->name()) == folded) return named(*control);
  const Found item = itemNamed(form, folded);
  return item.control ? item : cellNamed(form, name);
}

// Whether the control lies in a group box or on a page of tabs of that title.
bool isIn(const Layout& layout, const Control& control, const std::string& title) {
  for (std::size_t i = 0; i < layout.parts.size(); ++i) {
    if (!holds(layout.parts[i], control)) continue;
    const bool page = layout.kind == Layout::Kind::tabs &&
                      foldedCaption(static_cast<const Tabs&>(*layout.control).pages()[i]) == title;
    const bool box = layout.kind == Layout::Kind::group && foldedCaption(layout.title) == title;
    if (page || box || isIn(layout.parts[i], control, title)) return true;
  }
  return false;
}

struct Wanted {
  std::string caption;  // folded
  std::string group;    // folded; empty: anywhere
};

bool inGroup(const Form& form, const Control& control, const Wanted& wanted) {
  return wanted.group.empty() || isIn(form.arranged(), control, wanted.group);
}

std::vector<Found> captioned(const Form& form, const Wanted& wanted) {
  std::vector<Found> all;
  for (Control* control : form.controls())
    if (foldedCaption(control->caption()) == wanted.caption && inGroup(form, *control, wanted))
      all.push_back(named(*control));
  return all;
}

// The frame around options bears their common caption, so that one counts as a group box, too.
std::vector<Found> options(const Form& form, const Wanted& wanted) {
  std::vector<Found> all;
  for (Control* control : form.controls()) {
    const auto* choice = dynamic_cast<Choice*>(control);
    if (!choice || choice->look() != Choice::Look::options) continue;
    if (foldedCaption(choice->caption()) != wanted.group && !inGroup(form, *control, wanted)) continue;
    for (std::size_t i = 0; i < choice->items().size(); ++i)
      if (foldedCaption(choice->items()[i]) == wanted.caption)
        all.push_back({control, static_cast<int>(i), nullptr, 0});
  }
  return all;
}

Found firstVisible(const Form& form, const std::vector<Found>& all) {
  const auto shown = [&](const Found& at) { return at.control->visible() && form.shows(*at.control); };
  const auto visible = [](const Found& at) { return at.control->visible(); };
  auto found = std::find_if(all.begin(), all.end(), shown);
  if (found == all.end()) found = std::find_if(all.begin(), all.end(), visible);
  if (found != all.end()) return *found;
  return all.empty() ? Found() : all.front();
}

// By a caption without a group in front: the caption itself, or one of several equal ones by "#n".
Found byCaption(const Form& form, std::string_view text, const std::string& group) {
  if (foldedCaption(text).empty()) return {};
  for (const auto& list : {captioned, options}) {
    const auto all = list(form, {foldedCaption(text), group});
    if (!all.empty()) return firstVisible(form, all);
  }
  const auto mark = std::min(text.rfind('#'), text.size());
  const std::string caption = foldedCaption(text.substr(0, mark));
  const auto nth = mark < text.size() ? number(text.substr(mark + 1)) : std::nullopt;
  if (!nth || *nth < 1 || caption.empty()) return {};
  for (const auto& list : {captioned, options}) {
    const auto all = list(form, {caption, group});
    const auto index = static_cast<std::size_t>(*nth - 1);
    if (!all.empty()) return index < all.size() ? all[index] : Found();
  }
  return {};
}

int indexOf(std::string_view text) {
  return text.starts_with('#') ? number(text.substr(1)).value_or(-1) : -1;
}

}  // namespace

Found find(Form& form, std::string_view name) {
  if (foldedCaption(name).empty()) return {};
  Found found = byName(form, name);
  if (!found.control) found = byCaption(form, name, {});
  for (auto at = name.find('/'); at != std::string_view::npos && !found.control;
       at = name.find('/', at + 1)) {
    const std::string group = foldedCaption(name.substr(0, at));
    if (!group.empty()) found = byCaption(form, name.substr(at + 1), group);
  }
  return found;
}

FoundPage findPage(Form& form, std::string_view title) {
  const std::string folded = foldedCaption(title);
  for (Control* control : form.controls())
    if (auto* tabs = dynamic_cast<Tabs*>(control))
      for (std::size_t i = 0; i < tabs->pages().size(); ++i)
        if (foldedCaption(tabs->pages()[i]) == folded) return {tabs, static_cast<int>(i)};
  return {};
}

int itemOf(const Choice& choice, std::string_view text) {
  const auto& items = choice.items();
  const auto exact = std::find(items.begin(), items.end(), text);
  if (exact != items.end()) return static_cast<int>(exact - items.begin());
  const std::string folded = foldedCaption(text);
  for (std::size_t i = 0; i < items.size(); ++i)
    if (foldedCaption(items[i]) == folded) return static_cast<int>(i);
  const int index = indexOf(text);
  return index < static_cast<int>(items.size()) ? index : -1;
}

int rowOf(const List& list, std::string_view text) {
  list.reaches(-1);
  const Rows& rows = list.rows();
  const auto wanted = common::upper(common::trim(text));
  int byOtherCell = -1;
  for (std::size_t row = 0; row < rows.count(); ++row) {
    std::string whole;
    for (std::size_t column = 0; column < list.columns().size(); ++column) {
      const std::string cell = common::upper(common::trim(rows.cell(row, column)));
      if (column == 0 && cell == wanted) return static_cast<int>(row);
      if (cell == wanted && byOtherCell < 0) byOtherCell = static_cast<int>(row);
      whole += (column ? " " : "") + cell;
    }
    if (whole == wanted) return static_cast<int>(row);
  }
  if (byOtherCell >= 0) return byOtherCell;
  const int index = indexOf(text);
  return index < static_cast<int>(rows.count()) ? index : -1;
}

std::vector<Mnemonic> mnemonics(const Form& form) {
  std::vector<Mnemonic> all;
  const auto add = [&](std::string_view caption, Control* control, int option) {
    if (auto letter = mnemonicOf(caption); !letter.empty())
      all.push_back({std::move(letter), control, option});
  };
  for (Control* control : form.controls()) {
    if (&control->placed() != control) continue;
    add(control->caption(), control, -1);
    const auto* choice = dynamic_cast<Choice*>(control);
    const auto* tabs = dynamic_cast<Tabs*>(control);
    if (!tabs && (!choice || choice->look() != Choice::Look::options)) continue;
    int option = 0;
    for (const std::string& caption : tabs ? tabs->pages() : choice->items()) add(caption, control, option++);
  }
  return all;
}

namespace {

void countPlaces(const Layout& layout, std::map<const Control*, int>& places) {
  if (layout.control) ++places[layout.control];
  for (const Layout& part : layout.parts) countPlaces(part, places);
}

}  // namespace

std::vector<std::string> faultsOf(const Form& form) {
  std::vector<std::string> faults;
  std::map<const Control*, int> places;
  countPlaces(form.arranged(), places);
  std::map<std::string, int> names;
  for (const Control* control : form.controls()) {
    if (++names[common::upper(control->name())] == 2)
      faults.push_back(form.name() + ": two controls are called " + control->name());
    if (&control->placed() == control && places[control] != 1)
      faults.push_back(form.name() + ": " + control->name() + " is placed " +
                       std::to_string(places[control]) + " times");
  }
  std::map<std::string, std::string> letters;
  for (const Mnemonic& mnemonic : mnemonics(form))
    if (const auto [at, fresh] = letters.emplace(mnemonic.letter, mnemonic.control->name()); !fresh)
      faults.push_back(form.name() + ": " + at->second + " and " + mnemonic.control->name() + " share Alt+" +
                       mnemonic.letter);
  return faults;
}

}  // namespace ui
