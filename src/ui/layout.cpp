#include "ui/layout.h"

#include <algorithm>

#include "ui/control.h"

namespace ui {

Layout::Layout() = default;
Layout::Layout(const Control& placed) : kind(Kind::control), control(&placed) {}
Layout::Layout(Kind what, Parts within, std::string_view heading, const Control* placed)
    : kind(what), title(heading), control(placed), parts(within) {}
Layout::Layout(const Layout&) = default;
Layout& Layout::operator=(const Layout&) = default;
Layout::~Layout() = default;

Layout row(Parts parts) { return {Layout::Kind::row, parts}; }
Layout column(Parts parts) { return {Layout::Kind::column, parts}; }
Layout side(Parts parts) { return {Layout::Kind::side, parts}; }
Layout group(std::string_view title, Parts parts) { return {Layout::Kind::group, parts, title}; }
Layout buttons(Parts parts) { return {Layout::Kind::buttons, parts}; }
Layout tabs(const Control& control, Parts pages) { return {Layout::Kind::tabs, pages, {}, &control}; }
Layout space() { return {Layout::Kind::space, {}}; }

bool holds(const Layout& layout, const Control& control) {
  if (layout.control == &control.placed()) return true;
  return std::any_of(layout.parts.begin(), layout.parts.end(),
                     [&](const Layout& part) { return holds(part, control); });
}

}  // namespace ui
