// The frame MDIForm1 without its window: start-up, the choice of menu entries under the window rule, the status
// bar's panels, the appearance values, the ending with its questions. Both hosts drive this one.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "session/menu.h"
#include "session/session.h"

namespace tarvex {

enum class Chosen { done, refused, unknown, unavailable };  // unavailable: the unit is not in the program

class Frame {
 public:
  explicit Frame(Session& session);

  // The start-up of the program in its order, up to SCELTA, which runs as a modal form. False when it has ended the
  // program (unreadable `dataz`).
  bool start();

  // A menu entry or a key of the bars, by its own name; the window rule included.
  Chosen choose(std::string_view name);
  // The same for the entry that opens `unit`; a unit that stands open comes to the front. APRIAZ while only SCELTA
  // stands is SCELTA's own button.
  Chosen openUnit(std::string_view unit, std::string_view mode);

  // The ending with its questions; true when the program may go (archives closed, www written).
  bool end();

  void setPanel(int panel, std::string_view text);           // 1 to 8
  const std::array<std::string, 9>& panels() const { return panels_; }
  void showCompany();                                        // panels 4, 6, 8 and the title of the menu `mu`
  std::string caption(const MenuEntry& entry) const;         // "Magazzino 01" for `mu`

 private:
  Session& session_;
  std::array<std::string, 9> panels_;
};

}  // namespace tarvex
