#include "ui/form.h"

#include <algorithm>

namespace ui {
namespace {

constexpr int kHintPanel = 2;

}  // namespace

View::~View() = default;

Form::Form(Desk& desk, std::string_view name, std::string_view title)
    : desk_(desk), name_(name), title_(title) {}

Form::~Form() = default;

Layout Form::layout() const {
  Layout fields = column({}), bottom = buttons({});
  for (const Control* control : controls_) {
    if (&control->placed() != control) continue;
    if (dynamic_cast<const Button*>(control)) {
      bottom.parts.emplace_back(*control);
    } else if (dynamic_cast<const Grid*>(control) || dynamic_cast<const List*>(control)) {
      fields.parts.emplace_back(*control);
    } else {
      fields.parts.push_back(row({*control}));
    }
  }
  return column({fields, bottom});
}

const Layout& Form::arranged() const {
  if (!arranged_) {
    arranged_ = std::make_unique<const Layout>(layout());
    std::vector<Page> around;
    findPages(*arranged_, around);
  }
  return *arranged_;
}

// Notes each control with the pages of all the tabs around it.
void Form::findPages(const Layout& part, std::vector<Page>& around) const {
  if (part.control)
    for (const Page& page : around) onPages_.emplace_back(part.control, page);
  const auto* own = part.kind == Layout::Kind::tabs ? part.control : nullptr;
  const auto owner = std::find(controls_.begin(), controls_.end(), own);
  for (std::size_t i = 0; i < part.parts.size(); ++i) {
    if (owner != controls_.end()) around.push_back({static_cast<Tabs*>(*owner), static_cast<int>(i)});
    findPages(part.parts[i], around);
    if (owner != controls_.end()) around.pop_back();
  }
}

void Form::close() {
  if (!open_) return;
  open_ = false;
  const auto left = desk_.forms();
  if (left.empty() || left.back() == this)
    desk_.status(kHintPanel, {});
  else
    left.back()->showHint();
  unload();
  if (view_) view_->closed();
}

void Form::on(Key key, std::function<void()> action, std::string_view word) {
  keys_.push_back({key, std::move(action), std::string(word)});
}

bool Form::uses(Key key) const {
  return std::any_of(keys_.begin(), keys_.end(), [key](const auto& at) { return at.key == key; });
}

std::string_view Form::wordFor(Key key) const {
  for (const KeyAction& at : keys_)
    if (at.key == key) return at.word;
  return {};
}

std::vector<Control*> Form::order() const {
  std::vector<Control*> order;
  for (Control* control : controls_) {
    if (const auto* grid = dynamic_cast<const Grid*>(control)) {
      for (int row = 1; row <= grid->rows(); ++row)
        for (const GridCells* column : grid->columns())
          if (Control& cell = column->cell(row); cell.takesFocus()) order.push_back(&cell);
    } else if (&control->placed() == control && control->takesFocus()) {
      order.push_back(control);
    }
  }
  return order;
}

Control* Form::firstOn(const Tabs& tabs, int page) const {
  arranged();
  const auto lies = [&](const Control& control) {
    return std::any_of(onPages_.begin(), onPages_.end(), [&](const auto& at) {
      return at.first == &control.placed() && at.second.tabs == &tabs && at.second.number == page;
    });
  };
  for (Control* control : order())
    if (control->reachable() && lies(*control)) return control;
  return nullptr;
}

bool Form::shows(const Control& control) const {
  arranged();
  return std::none_of(onPages_.begin(), onPages_.end(), [&](const auto& at) {
    return at.first == &control.placed() && at.second.tabs->current() != at.second.number;
  });
}

void Form::showHint() const {
  desk_.status(kHintPanel, focused_ ? std::string_view(focused_->hint) : std::string_view());
}

void Form::bringForward(const Control& control) {
  arranged();
  for (const auto& [placed, page] : onPages_)
    if (placed == &control.placed()) page.tabs->select(page.number);
}

void Form::setFocus(Control* control) {
  if (control) bringForward(*control);
  if (auto* field = dynamic_cast<Field*>(control)) field->selectAll();
  const bool entered = control && control != focused_;
  focused_ = control;
  showHint();
  if (view_) view_->focusMoved();
  if (entered && control->onEnter) control->onEnter();
}

}  // namespace ui
