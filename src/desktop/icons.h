// The hand-drawn icons: lines on a grid of 24, in the colour of the theme at whatever size and density they
// are shown.
#pragma once

#include <QColor>
#include <QIcon>
#include <string_view>

namespace desktop {

enum class Ink { accent, text, warning, critical };

// By the name of a key of the bars ("p4", "pn2") or of its own ("print", "warning"); empty when there is
// none.
QIcon icon(std::string_view name, Ink ink = Ink::accent);

}  // namespace desktop
