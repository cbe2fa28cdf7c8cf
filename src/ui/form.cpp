#include "ui/form.h"

#include <algorithm>

namespace ui {
namespace {

constexpr int kHintPanel = 2;

// Every tabs node of the layout in which the control lies, with the page.
template <class Visit>
void eachPageOf(const Layout& layout, const Control& control, const Visit& visit) {
  for (std::size_t i = 0; i < layout.parts.size(); ++i) {
    const Layout& part = layout.parts[i];
    if (!holds(part, control)) continue;
    if (layout.kind == Layout::Kind::tabs)
      visit(static_cast<const Tabs&>(*layout.control), static_cast<int>(i));
    eachPageOf(part, control, visit);
  }
}

const Layout* nodeOf(const Layout& layout, const Control& control) {
  if (layout.control == &control) return &layout;
  for (const Layout& part : layout.parts)
    if (const Layout* found = nodeOf(part, control)) return found;
  return nullptr;
}

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
  if (!arranged_) arranged_ = std::make_unique<const Layout>(layout());
  return *arranged_;
}

void Form::close() {
  if (!open_) return;
  open_ = false;
  desk_.status(kHintPanel, {});
  unload();
  if (view_) view_->closed();
}

void Form::on(Key key, std::function<void()> action) { keys_.emplace_back(key, std::move(action)); }

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
  const Layout* found = nodeOf(arranged(), tabs);
  if (!found || page < 0 || static_cast<std::size_t>(page) >= found->parts.size()) return nullptr;
  for (Control* control : order())
    if (control->reachable() && holds(found->parts[static_cast<std::size_t>(page)], *control)) return control;
  return nullptr;
}

bool Form::shows(const Control& control) const {
  bool shown = true;
  eachPageOf(arranged(), control, [&](const Tabs& tabs, int page) { shown &= tabs.current() == page; });
  return shown;
}

void Form::showHint() const {
  desk_.status(kHintPanel, focused_ ? std::string_view(focused_->hint) : std::string_view());
}

void Form::bringForward(const Control& control) {
  eachPageOf(arranged(), control, [&](const Tabs& tabs, int page) {
    for (Control* owner : controls_)
      if (owner == &tabs) static_cast<Tabs*>(owner)->select(page);
  });
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
