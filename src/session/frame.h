// The frame MDIForm1 without its window: start-up, the choice of menu entries under the window rule, the
// appearance values, the ending with its questions. Both hosts drive this one; the panels of the status bar
// reach them through Desk::status.
#pragma once

#include <string>
#include <string_view>

#include "session/menu.h"
#include "session/session.h"

namespace tarvex {

enum class Chosen {
  done,
  refused,      // by the window rule, a box told so; or because no company is open yet
  unknown,      // no such entry
  unavailable,  // the entry's unit is not in the program
  host,         // an act of the host's window: cascade, help, calculator, journalKeys (findMenu tells which)
};

// How the frame looks, by the parameters.
struct Appearance {
  int toolBar = 0;  // 1 to 6; 0: none is shown
  bool sideBar = false;
  bool statusBar = false;
  long colour = 0;         // of the frame, as blue * 65536 + green * 256 + red; 0: the desktop's own
  std::string background;  // picture file, empty for none; it may be missing
  std::string sideBarPicture;
};

class Frame {
 public:
  explicit Frame(Session& session) : session_(session) {}

  // The start-up of the program in its order, up to SCELTA, which runs as a modal form; returns when a
  // company is open. False when the program ends instead (unreadable `dataz`, SCELTA closed): Desk::end has
  // been called.
  bool start();

  // A menu entry or a key of the bars, by its own name; the window rule included. "StatusBar1" is a click on
  // the status bar.
  Chosen choose(std::string_view name);

  // The same for the entry that opens `unit`; a unit that stands open comes to the front. APRIAZ while only
  // SCELTA stands is SCELTA's own button.
  Chosen openUnit(std::string_view unit, std::string_view mode);

  // The ending with its questions; true when the program may go (archives closed, `www` written), and from
  // then on.
  bool end();

  Appearance appearance() const;
  std::string caption(const MenuEntry& entry) const;  // "&Magazzino 01" for `mu`

 private:
  Chosen choose(const MenuEntry& entry);
  Chosen open(const MenuEntry& entry);
  Chosen finish();
  bool passesWindowRule(Guard guard);
  bool chooseCompany();
  void changeCompany();
  bool stopsForBackup();

  Session& session_;
  bool ended_ = false;
};

}  // namespace tarvex
