// The boxes of the forms: a text, a title, an icon and the buttons of an answer.
#pragma once

#include <QWidget>

#include "ui/desk.h"

namespace desktop {

// Modal over `parent`; returns when the user has answered. Escape and the cross give the answer that
// ui::Desk::show tells. Ctrl+C copies the text.
ui::Answer showBox(const ui::Box& box, QWidget* parent);

}  // namespace desktop
