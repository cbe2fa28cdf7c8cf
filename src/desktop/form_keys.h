// Keys of the keyboard as the form model names them.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "ui/key.h"

namespace desktop {

// Nothing for a key that writes, or that the widgets use by themselves.
std::optional<ui::Key> keyOf(const QKeyEvent& event);

// What the key does, in a word for the bar of keys: "Ricerca" for F5.
QString wordOf(ui::Key key);

}  // namespace desktop
