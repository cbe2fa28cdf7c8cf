#include "desktop/form_keys.h"

namespace desktop {
namespace {

struct Pair {
  int qt;
  ui::Key key;
};
constexpr Pair kPairs[] = {
    {Qt::Key_Return, ui::Key::enter},      {Qt::Key_Enter, ui::Key::enter},
    {Qt::Key_Tab, ui::Key::tab},           {Qt::Key_Backtab, ui::Key::shiftTab},
    {Qt::Key_Escape, ui::Key::escape},     {Qt::Key_Up, ui::Key::up},
    {Qt::Key_Down, ui::Key::down},         {Qt::Key_PageUp, ui::Key::pageUp},
    {Qt::Key_PageDown, ui::Key::pageDown}, {Qt::Key_Backspace, ui::Key::backspace},
    {Qt::Key_Delete, ui::Key::del},
};

// These belong to the widgets: copy, cut, paste, mark everything.
bool isEditing(int key) {
  return key == Qt::Key_C || key == Qt::Key_X || key == Qt::Key_V || key == Qt::Key_A;
}

}  // namespace

std::optional<ui::Key> keyOf(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return {};
  const int key = event.key();
  if (event.modifiers() & Qt::ControlModifier) {
    if (key < Qt::Key_A || key > Qt::Key_Z || isEditing(key)) return {};
    return ui::ctrl(static_cast<char>('A' + key - Qt::Key_A));
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
    return static_cast<ui::Key>(static_cast<int>(ui::Key::F1) + key - Qt::Key_F1);
  if (key == Qt::Key_Tab && event.modifiers() & Qt::ShiftModifier) return ui::Key::shiftTab;
  if (key == Qt::Key_Delete && event.modifiers() & Qt::ShiftModifier) return {};
  for (const Pair& pair : kPairs)
    if (pair.qt == key) return pair.key;
  return {};
}

QString wordOf(ui::Key key) {
  switch (key) {
    case ui::Key::F2:
      return "Ripete";
    case ui::Key::F5:
      return "Ricerca";
    case ui::Key::F6:
      return "Scorporo iva";
    case ui::Key::F7:
      return "Più usati";
    case ui::Key::F8:
      return "Prosegue descrizione";
    case ui::Key::pageUp:
    case ui::Key::pageDown:
      return "Pagina";
    default:
      return {};
  }
}

}  // namespace desktop
