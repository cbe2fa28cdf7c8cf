// A voice as the screens of the chart show it.
#pragma once

#include <string>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

class VoiceLabels {
 public:
  explicit VoiceLabels(ui::Form& form);

  // The voice in session.pc.B, which the reading of its parents replaces.
  void show(Session& session);
  void clear();
  ui::Layout layout() const;

 private:
  ui::Label codice, descrizione, tipo, natura, mastro, conto, iniziale, dare, avere, saldo;
};

// "00002 00008 00011", without the levels that there are not.
std::string shownCode(std::string_view codice);

}  // namespace tarvex
