#include "ui/control.h"

#include <algorithm>

#include "common/amount.h"
#include "common/text.h"
#include "ui/caption.h"
#include "ui/form.h"

namespace ui {
namespace {

class TextRows : public Rows {
 public:
  explicit TextRows(std::vector<std::vector<std::string>> rows) : rows_(std::move(rows)) {}
  std::size_t count() const override { return rows_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override {
    return column < rows_[row].size() ? rows_[row][column] : std::string();
  }

 private:
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace

Control::Control(Form& form, std::string_view name, std::string_view caption)
    : form_(form), name_(name), caption_(caption) {
  form_.controls_.push_back(this);
}

Control::~Control() = default;

void Control::changed() {
  if (form_.view_) form_.view_->refresh(*this);
}

void Control::setCaption(std::string_view caption) {
  caption_ = caption;
  changed();
}

void Control::setEnabled(bool on) {
  if (enabled_ == on) return;
  enabled_ = on;
  changed();
}

void Control::setVisible(bool on) {
  if (visible_ == on) return;
  visible_ = on;
  changed();
}

void Control::focus() {
  if (reachable() && form_.isOpen()) form_.setFocus(this);
}

void Control::on(Key key, std::function<void()> action) {
  std::erase_if(keys_, [key](const KeyAction& at) { return at.key == key; });
  keys_.push_back({key, std::move(action), {}});
}

bool Control::uses(Key key) const {
  return std::any_of(keys_.begin(), keys_.end(), [key](const auto& at) { return at.key == key; });
}

Field::Field(Form& form, std::string_view name, std::string_view caption, const Mask& mask)
    : Control(form, name, caption), mask_(mask), edit_{std::string(mask_.blank()), 0, 0} {}
Field::~Field() = default;

double Field::number() const { return common::toNumber(edit_.text); }

void Field::setText(std::string_view text) {
  edit_.text = text.empty() ? std::string(mask_.blank()) : common::cleaned(text);
  selectAll();
  changed();
}

void Field::selectAll() {
  completed_ = false;
  edit_.cursor = mask_.blank().empty() ? edit_.text.size() : 0;
  edit_.mark = 0;
}

void Field::setNumber(double value, int decimals) { setText(common::toText(value, decimals)); }

Memo::Memo(Form& form, std::string_view name, std::string_view caption, Look look, int limit, int lines)
    : Control(form, name, caption), look_(look), limit_(limit), lines_(lines) {}
Memo::~Memo() = default;

std::string Memo::text() const { return look_ == Look::rich ? text_.html() : text_.plain(); }

void Memo::setText(std::string_view text) {
  text_ = look_ == Look::rich ? RichText::fromHtml(text) : RichText::fromPlain(text);
  text_.truncate(static_cast<std::size_t>(limit_));
  changed();
}

Label::Label(Form& form, std::string_view name, std::string_view caption, int width)
    : Control(form, name, caption), width_(width) {}
Label::~Label() = default;

void Label::setText(std::string_view text) {
  text_ = common::cleaned(text, true);
  changed();
}

void Label::setNumber(double value, int decimals) { setText(common::toText(value, decimals)); }

Button::Button(Form& form, std::string_view name, std::string_view caption, Role role)
    : Control(form, name, caption), role_(role) {}
Button::~Button() = default;

Check::Check(Form& form, std::string_view name, std::string_view caption) : Control(form, name, caption) {}
Check::~Check() = default;

void Check::set(bool on) {
  on_ = on;
  changed();
}

Choice::Choice(Form& form, std::string_view name, std::string_view caption, Look look, Words items)
    : Control(form, name, caption), look_(look), items_(items.begin(), items.end()) {}
Choice::~Choice() = default;

std::string Choice::text() const {
  if (index_ < 0) return {};
  const std::string& item = items_[static_cast<std::size_t>(index_)];
  return look_ == Look::options ? plainCaption(item) : item;
}

void Choice::setItems(std::vector<std::string> items) {
  items_ = std::move(items);
  for (std::string& item : items_) item = common::cleaned(item);
  index_ = -1;
  changed();
}

void Choice::addItem(std::string_view item) {
  items_.push_back(common::cleaned(item));
  changed();
}

void Choice::select(int index) {
  index_ = index >= 0 && index < static_cast<int>(items_.size()) ? index : -1;
  changed();
}

bool Choice::selectText(std::string_view text) {
  const auto reads = [&](const std::string& item) {
    return item == text || (look_ == Look::options && plainCaption(item) == text);
  };
  const auto found = std::find_if(items_.begin(), items_.end(), reads);
  select(found == items_.end() ? -1 : static_cast<int>(found - items_.begin()));
  return index_ >= 0;
}

Spin::Spin(Form& form, std::string_view name, std::string_view caption, int minimum, int maximum)
    : Control(form, name, caption), minimum_(minimum), maximum_(maximum), value_(minimum) {}
Spin::~Spin() = default;

void Spin::setRange(int minimum, int maximum) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  setValue(value_);
}

void Spin::setValue(int value) {
  value_ = std::clamp(value, minimum_, maximum_);
  changed();
}

Rows::~Rows() = default;

List::List(Form& form, std::string_view name, std::string_view caption, std::vector<ListColumn> columns,
           Marks marks)
    : Control(form, name, caption),
      columns_(std::move(columns)),
      rows_(std::make_unique<TextRows>(std::vector<std::vector<std::string>>())),
      several_(marks == Marks::several) {}
List::~List() = default;

void List::setRows(std::unique_ptr<Rows> rows) {
  rows_ = std::move(rows);
  selected_.clear();
  changed();
}

void List::setRows(std::vector<std::vector<std::string>> rows) {
  setRows(std::make_unique<TextRows>(std::move(rows)));
}

bool List::reaches(int row) const {
  while ((row < 0 || rows_->count() <= static_cast<std::size_t>(row)) && rows_->grow()) continue;
  return row >= 0 && rows_->count() > static_cast<std::size_t>(row);
}

void List::select(int row) { select(std::vector<int>{row}); }

void List::select(std::vector<int> rows) {
  const auto count = rows_->count();
  std::erase_if(rows, [&](int row) { return row < 0 || static_cast<std::size_t>(row) >= count; });
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (!several_ && rows.size() > 1) rows.resize(1);
  selected_ = std::move(rows);
  changed();
}

Tabs::Tabs(Form& form, std::string_view name, Words pages)
    : Control(form, name, {}), pages_(pages.begin(), pages.end()) {}
Tabs::~Tabs() = default;

void Tabs::select(int page) {
  if (page < 0 || page >= static_cast<int>(pages_.size()) || page == current_) return;
  current_ = page;
  changed();
}

Grid::Grid(Form& form, std::string_view name, int rows, int pages)
    : Control(form, name, {}), rows_(rows), pages_(pages) {}
Grid::~Grid() = default;

void Grid::turnTo(int page) {
  if (page < 0 || page >= pages_ || page == page_) return;
  page_ = page;
  for (GridCells* column : columns_)
    for (int row = 1; row <= rows_; ++row) column->rename(row);
  if (onPage) onPage();
  changed();
}

GridCells::GridCells(Grid& grid, std::string_view name, std::string_view caption)
    : grid_(grid), name_(name), caption_(caption) {
  grid.columns_.push_back(this);
}

GridCells::~GridCells() = default;

void GridCells::add(std::unique_ptr<Control> cell) {
  cell->placed_ = &grid_;
  cells_.push_back(std::move(cell));
  rename(static_cast<int>(cells_.size()));
}

void GridCells::rename(int row) { cell(row).name_ = name_ + "(" + std::to_string(grid_.line(row)) + ")"; }

Control& GridCells::cell(int row) const { return *cells_.at(static_cast<std::size_t>(row - 1)); }

GridColumn::GridColumn(Grid& grid, std::string_view name, std::string_view caption, const Mask& mask)
    : GridOf(grid, name, caption) {
  for (int row = 1; row <= grid.rows(); ++row)
    add(std::make_unique<Field>(grid.form(), std::string_view(), caption, mask));
}

GridColumn::~GridColumn() = default;

GridChecks::GridChecks(Grid& grid, std::string_view name, std::string_view caption)
    : GridOf(grid, name, caption) {
  for (int row = 1; row <= grid.rows(); ++row)
    add(std::make_unique<Check>(grid.form(), std::string_view(), caption));
}

GridChecks::~GridChecks() = default;

GridLabels::GridLabels(Grid& grid, std::string_view name, std::string_view caption, int width)
    : GridOf(grid, name, caption) {
  for (int row = 1; row <= grid.rows(); ++row)
    add(std::make_unique<Label>(grid.form(), std::string_view(), caption, width));
}

GridLabels::~GridLabels() = default;

Cell cellOf(const Control& control) {
  if (&control.placed() == &control) return {};
  const auto& grid = static_cast<const Grid&>(control.placed());
  for (GridCells* column : grid.columns())
    for (int row = 1; row <= grid.rows(); ++row)
      if (&column->cell(row) == &control) return {column, row};
  return {};
}

}  // namespace ui
