// The controls of a form and their events, without any drawing. What a unit sets by itself raises no
// event; events come from the user's hands alone (ui/user.h).
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/key.h"
#include "ui/mask.h"
#include "ui/rich_text.h"

namespace ui {

class Form;
enum class Leave { go, stay };

struct KeyAction {
  Key key;
  std::function<void()> action;
  std::string word;  // in the bar of keys; empty: the usual one
};

class Control {
 public:
  Control(Form& form, std::string_view name, std::string_view caption);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& form() const { return form_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  bool enabled() const { return enabled_ && placed_->enabled_; }  // a cell is no more than its grid
  bool visible() const { return visible_ && placed_->visible_; }
  bool reachable() const { return enabled() && visible() && takesFocus(); }
  void setCaption(std::string_view caption);
  void setEnabled(bool on);
  void setVisible(bool on);
  void focus();  // the unit's own will: asks no onLeave; nothing happens when it is not reachable

  // "field", "text", "button" and so on; empty for a grid, which shows by its cells alone.
  virtual std::string_view kind() const = 0;
  virtual bool takesFocus() const { return true; }
  const Control& placed() const { return *placed_; }  // what the layout names: a cell's grid

  // While this control has the focus; comes before what the key does by itself, and takes the place of what
  // was set for it before.
  void on(Key key, std::function<void()> action);
  bool uses(Key key) const;  // something is set for it
  std::function<void()> onEnter;
  std::function<Leave()> onLeave;  // stay: the focus does not move
  std::string hint;                // in the status bar while focused

 protected:
  void changed();  // tells the view

 private:
  friend class User;
  friend class Grid;
  friend class GridCells;
  Form& form_;
  std::string name_, caption_;
  bool enabled_ = true, visible_ = true;
  const Control* placed_ = this;
  std::vector<KeyAction> keys_;
};

class Field : public Control {  // one line of text, entered through a mask
 public:
  Field(Form& form, std::string_view name, std::string_view caption, const Mask& mask);
  ~Field() override;

  const Mask& mask() const { return mask_; }
  const std::string& text() const { return edit_.text; }
  std::string shown() const { return mask_.shown(edit_.text); }
  bool empty() const { return mask_.isBlank(edit_.text); }
  double number() const;
  const std::string& typed() const { return completed_ ? typed_ : edit_.text; }  // without the completion
  void setText(std::string_view text);  // made clean; an empty text is the mask's blank
  void setNumber(double value, int decimals = 2);
  void clear() { setText({}); }
  const Edit& edit() const { return edit_; }  // cursor and selection while it has the focus
  void selectAll();  // as when the focus enters: of a pattern nothing, its cursor goes to the start

  std::function<void()> onChange;  // by the user's hand only

  // The whole text that `typed` begins, or an empty one; asked after each key at the end of the text.
  // What it adds is selected. It always gets what was typed, never what it answered itself.
  std::function<std::string(const std::string& typed)> complete;

  // The whole text after (way 1) or before (way -1) `shown` that `typed` begins, or an empty one: Up
  // and Down ask it while a completion stands.
  std::function<std::string(const std::string& typed, const std::string& shown, int way)> browse;

  std::string_view kind() const override { return "field"; }

 private:
  friend class User;
  Mask mask_;
  Edit edit_;
  std::string typed_;       // by the user, while completed_
  bool completed_ = false;  // the selection is what the completion added
};

class Memo : public Control {  // several lines, plain or with words in bold, italics, fonts
 public:
  enum class Look { plain, rich };
  // `limit` is in characters of the plain text; `lines` is the height.
  Memo(Form& form, std::string_view name, std::string_view caption, Look look = Look::plain,
       int limit = 32000, int lines = 5);
  ~Memo() override;
  Look look() const { return look_; }
  int limit() const { return limit_; }
  int lines() const { return lines_; }
  bool empty() const { return text_.empty(); }
  std::string text() const;  // of a rich memo the HTML (ui/rich_text.h), else the plain text
  std::string plainText() const { return text_.plain(); }
  void setText(std::string_view text);  // HTML for a rich memo; cut at the limit
  void clear() { setText({}); }
  bool readOnly() const { return readOnly_; }  // it takes the focus, to be paged through, and no text
  void setReadOnly() { readOnly_ = true; }     // before it is drawn
  std::function<void()> onChange;
  std::string_view kind() const override { return "text"; }

 private:
  friend class User;
  Look look_;
  int limit_, lines_;
  bool readOnly_ = false;
  RichText text_;
};

class Label : public Control {  // a value shown, never entered
 public:
  Label(Form& form, std::string_view name, std::string_view caption = {}, int width = 0);
  ~Label() override;
  const std::string& text() const { return text_; }
  int width() const { return width_; }  // in characters; 0: that of its text
  void setText(std::string_view text);
  void setNumber(double value, int decimals = 2);
  bool takesFocus() const override { return false; }
  std::string_view kind() const override { return "label"; }

 private:
  std::string text_;
  int width_;
};

class Button : public Control {
 public:
  enum class Role { plain, main, cancel };  // main: stands out; cancel: Escape, asks no onLeave
  Button(Form& form, std::string_view name, std::string_view caption, Role role = Role::plain);
  ~Button() override;
  Role role() const { return role_; }
  std::function<void()> onPress;
  std::string_view kind() const override { return "button"; }

 private:
  Role role_;
};

class Check : public Control {
 public:
  Check(Form& form, std::string_view name, std::string_view caption);
  ~Check() override;
  bool on() const { return on_; }
  using Control::on;
  void set(bool on);
  std::function<void()> onChange;
  std::string_view kind() const override { return "check"; }

 private:
  bool on_ = false;
};

using Words = std::initializer_list<std::string_view>;

class Choice : public Control {  // one out of several: options side by side, or a combo
 public:
  enum class Look { options, combo };
  Choice(Form& form, std::string_view name, std::string_view caption, Look look, Words items = {});
  ~Choice() override;
  Look look() const { return look_; }
  const std::vector<std::string>& items() const { return items_; }
  int index() const { return index_; }            // -1: none
  std::string text() const;                       // of the chosen item, without "&"; empty when none is
  void setItems(std::vector<std::string> items);  // none is chosen then
  void addItem(std::string_view item);
  void nameItems(Words names) { names_.assign(names.begin(), names.end()); }  // in the order of the items
  const std::vector<std::string>& itemNames() const { return names_; }
  void select(int index);                  // -1, or no such item: none
  bool selectText(std::string_view text);  // false, and none is chosen, when no item reads so
  std::function<void()> onChange;
  std::function<void()> onDoubleClick;  // of a combo
  std::string_view kind() const override { return look_ == Look::options ? "options" : "combo"; }

 private:
  Look look_;
  std::vector<std::string> items_, names_;
  int index_ = -1;
};

class Spin : public Control {
 public:
  Spin(Form& form, std::string_view name, std::string_view caption, int minimum, int maximum);
  ~Spin() override;
  int value() const { return value_; }
  int minimum() const { return minimum_; }
  int maximum() const { return maximum_; }
  void setRange(int minimum, int maximum);
  void setValue(int value);  // held within the range
  std::function<void()> onChange;
  bool pages = false;  // through what the form shows: PageUp and PageDown turn it from anywhere
  std::string_view kind() const override { return "spin"; }

 private:
  int minimum_, maximum_, value_;
};

struct ListColumn {
  std::string_view title;  // a literal
  int width;               // in characters
  bool right = false;
};

class Rows {  // what a list shows: asked for the rows in sight
 public:
  virtual ~Rows();
  virtual std::size_t count() const = 0;  // of those read so far
  virtual std::string cell(std::size_t row, std::size_t column) const = 0;
  // A long list is read while it is looked at: reads some rows more. False: there are no more.
  virtual bool grow() { return false; }
};

class List : public Control {
 public:
  enum class Marks { one, several };
  List(Form& form, std::string_view name, std::string_view caption, std::vector<ListColumn> columns,
       Marks marks = Marks::one);
  ~List() override;
  const std::vector<ListColumn>& columns() const { return columns_; }
  const Rows& rows() const { return *rows_; }
  bool grow() const { return rows_->grow(); }
  bool reaches(int row) const;  // reads as far as that row, if the list is as long; -1: to its end
  bool takesSeveral() const { return several_; }
  int height() const { return height_; }  // in rows, before anybody makes the form larger
  void setHeight(int rows) { height_ = rows; }
  int selected() const { return selected_.empty() ? -1 : selected_.front(); }  // -1: none
  const std::vector<int>& selectedRows() const { return selected_; }           // ascending
  void setRows(std::unique_ptr<Rows> rows);                                    // none is selected then
  void setRows(std::vector<std::vector<std::string>> rows);
  void select(int row);  // -1, or no such row: none
  void select(std::vector<int> rows);
  std::function<void()> onSelect;
  std::function<void()> onPick;  // double click or Enter
  std::string_view kind() const override { return "list"; }

 private:
  std::vector<ListColumn> columns_;
  std::unique_ptr<Rows> rows_;
  bool several_;
  int height_ = 10;
  std::vector<int> selected_;
};

class Tabs : public Control {
 public:
  Tabs(Form& form, std::string_view name, Words pages);
  ~Tabs() override;
  const std::vector<std::string>& pages() const { return pages_; }
  int current() const { return current_; }
  void select(int page);
  bool takesFocus() const override { return false; }
  std::string_view kind() const override { return "tabs"; }

 private:
  std::vector<std::string> pages_;
  int current_ = 0;
};

class GridCells;

// Rows of cells in columns, entered from left to right. A cell is named by its column and its line,
// "controp(3)", and bears the column's caption. Where there are several pages the same cells show
// page after page, and row r of page p (from 0) is line p * rows() + r.
class Grid : public Control {
 public:
  Grid(Form& form, std::string_view name, int rows, int pages = 1);
  ~Grid() override;
  int rows() const { return rows_; }
  int pages() const { return pages_; }
  int page() const { return page_; }  // from 0
  int line(int row) const { return page_ * rows_ + row; }
  int lines() const { return rows_ * pages_; }
  const std::vector<GridCells*>& columns() const { return columns_; }
  void turnTo(int page);  // no such page: nothing happens
  bool takesFocus() const override { return false; }
  std::function<void()> onPage;  // the unit fills the cells with the lines of page()
  std::string_view kind() const override { return {}; }

  // A tall grid is drawn as so many blocks beside each other, read from the left one down.
  void foldInto(int blocks) { blocks_ = blocks; }
  int blocks() const { return blocks_; }

 private:
  friend class GridCells;
  int rows_, pages_, page_ = 0, blocks_ = 1;
  std::vector<GridCells*> columns_;
};

// A column of a grid, whatever its cells are.
class GridCells {
 public:
  virtual ~GridCells();
  GridCells(const GridCells&) = delete;
  GridCells& operator=(const GridCells&) = delete;
  Grid& grid() const { return grid_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  Control& cell(int row) const;  // rows of the screen, from 1

 protected:
  GridCells(Grid& grid, std::string_view name, std::string_view caption);
  void add(std::unique_ptr<Control> cell);  // the next row's

 private:
  friend class Grid;
  void rename(int row);
  Grid& grid_;
  std::string name_, caption_;
  std::vector<std::unique_ptr<Control>> cells_;
};

template <class Kind>
class GridOf : public GridCells {
 public:
  Kind& operator[](int row) const { return static_cast<Kind&>(cell(row)); }
  void onEach(const std::function<void(Kind& cell, int row)>& set) {  // events, hints, keys
    for (int row = 1; row <= grid().rows(); ++row) set((*this)[row], row);
  }

 protected:
  using GridCells::GridCells;
};

class GridColumn : public GridOf<Field> {
 public:
  GridColumn(Grid& grid, std::string_view name, std::string_view caption, const Mask& mask);
  ~GridColumn() override;
  const Mask& mask() const { return (*this)[1].mask(); }
};

class GridChecks : public GridOf<Check> {
 public:
  GridChecks(Grid& grid, std::string_view name, std::string_view caption);
  ~GridChecks() override;
};

class GridLabels : public GridOf<Label> {
 public:
  GridLabels(Grid& grid, std::string_view name, std::string_view caption, int width);
  ~GridLabels() override;
};

struct Cell {
  GridCells* column = nullptr;  // null: the control is no cell
  int row = 0;
};
Cell cellOf(const Control& control);

}  // namespace ui
