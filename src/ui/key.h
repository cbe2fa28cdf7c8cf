// The keys that act on a form instead of writing into a field.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ui {

enum class Key : int {
  enter,
  tab,
  shiftTab,
  escape,
  up,
  down,
  pageUp,
  pageDown,
  backspace,
  del,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  ctrlA  // the other letters follow: ctrl('X')
};

constexpr Key ctrl(char capital) { return static_cast<Key>(static_cast<int>(Key::ctrlA) + capital - 'A'); }

// "Enter", "PageDown", "F5", "Ctrl+X", whatever the case; nothing for any other text.
std::optional<Key> parseKey(std::string_view text);
std::string nameOf(Key key);

}  // namespace ui
