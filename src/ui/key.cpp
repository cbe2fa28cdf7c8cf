#include "ui/key.h"

#include <iterator>

#include "common/text.h"

namespace ui {
namespace {

// In the order of the enumeration, up to the function keys.
constexpr std::string_view kNames[] = {"Enter", "Tab",    "Shift+Tab", "Escape",    "Up",
                                       "Down",  "PageUp", "PageDown",  "Backspace", "Delete"};
static_assert(std::size(kNames) == static_cast<int>(Key::F1));

constexpr std::string_view kControl = "CTRL+";

}  // namespace

std::optional<Key> parseKey(std::string_view text) {
  const std::string wanted = common::upper(text);
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    if (common::upper(kNames[i]) == wanted) return static_cast<Key>(i);
  for (int i = 1; i <= 12; ++i)
    if (wanted == "F" + std::to_string(i)) return static_cast<Key>(static_cast<int>(Key::F1) + i - 1);
  const bool control = wanted.size() == kControl.size() + 1 && wanted.starts_with(kControl);
  if (control && wanted.back() >= 'A' && wanted.back() <= 'Z') return ctrl(wanted.back());
  return {};
}

std::string nameOf(Key key) {
  if (key < Key::F1) return std::string(kNames[static_cast<int>(key)]);
  if (key <= Key::F12) return "F" + std::to_string(static_cast<int>(key) - static_cast<int>(Key::F1) + 1);
  return std::string("Ctrl+") + static_cast<char>('A' + static_cast<int>(key) - static_cast<int>(Key::ctrlA));
}

}  // namespace ui
