// Controls and forms as the answers show them.
#pragma once

#include <nlohmann/json.hpp>

#include "ui/form.h"

namespace driver {

// name, caption (as written, with its "&"), kind, text, enabled, visible; then what its kind adds. The text
// of a choice is that of its chosen item, of buttons and the like it is empty.
nlohmann::ordered_json toJson(const ui::Control& control);

// All controls of the form in the order of its unit, grids by their cells.
nlohmann::ordered_json controlsOf(const ui::Form& form);

}  // namespace driver
