// How a form's controls lie beside and below each other, in no toolkit's words.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

class Control;

struct Layout;
using Parts = std::initializer_list<Layout>;

struct Layout {
  enum class Kind { nothing, control, row, column, group, tabs, buttons, side, space };

  Layout();
  Layout(const Control& control);  // NOLINT(google-explicit-constructor): layouts are lists of controls
  Layout(Kind kind, Parts parts, std::string_view title = {}, const Control* control = nullptr);
  Layout(const Layout&);
  Layout& operator=(const Layout&);
  ~Layout();

  Kind kind = Kind::nothing;
  std::string title;
  const Control* control = nullptr;
  std::vector<Layout> parts;
};

Layout row(Parts parts);  // labels align with those of the rows around it
Layout column(Parts parts);
Layout side(Parts parts);  // columns or groups beside each other
Layout group(std::string_view title, Parts parts);
Layout buttons(Parts parts);
Layout tabs(const Control& control, Parts pages);
Layout space();  // takes what room is left

// Whether `control`, or the grid whose cell it is, lies somewhere in `layout`.
bool holds(const Layout& layout, const Control& control);

}  // namespace ui
