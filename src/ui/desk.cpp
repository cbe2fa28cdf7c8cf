#include "ui/desk.h"

#include <utility>

#include "ui/control.h"

namespace ui {

std::vector<Answer> buttonsOf(Ask ask) {
  switch (ask) {
    case Ask::okCancel:
      return {Answer::ok, Answer::cancel};
    case Ask::yesNo:
      return {Answer::yes, Answer::no};
    case Ask::yesNoCancel:
      return {Answer::yes, Answer::no, Answer::cancel};
    default:
      return {Answer::ok};
  }
}

Answer defaultOf(const Box& box) {
  if (box.ask == Ask::ok || box.ask == Ask::okCancel) return Answer::ok;
  return box.defaultNo ? Answer::no : Answer::yes;
}

std::string_view nameOf(Answer answer) {
  constexpr std::string_view names[] = {"ok", "cancel", "yes", "no"};
  return names[static_cast<int>(answer)];
}

std::string_view nameOf(Icon icon) {
  constexpr std::string_view names[] = {"none", "information", "warning", "critical", "question"};
  return names[static_cast<int>(icon)];
}

Desk::~Desk() = default;

bool Desk::progress(std::size_t, std::size_t) { return true; }

void Desk::refuse(std::string text) {
  beep();
  show({std::move(text), "Errore", Ask::ok, Icon::warning});
}

void Desk::refuse(std::string text, Control& control) {
  refuse(std::move(text));
  control.focus();
}

void Desk::warn(std::string text) { show({std::move(text), "Attenzione", Ask::ok, Icon::warning}); }

bool Desk::confirm(std::string text, std::string title, bool defaultNo) {
  return show({std::move(text), std::move(title), Ask::yesNo, Icon::question, defaultNo}) == Answer::yes;
}

}  // namespace ui
