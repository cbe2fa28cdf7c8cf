// The user's hands on a form: the one way in for windows, the driver and tests.
//
// Every action first leaves the control that has the focus, with its onLeave. False means that the
// action was not carried out: that control took the focus back or sent it elsewhere, the form closed
// meanwhile, or the control is disabled, hidden or has no such item.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "ui/form.h"

namespace ui {

class User {
 public:
  explicit User(Form& form) : form_(form) {}

  // Loads the form, the first time, and puts the focus into its first control unless the unit chose
  // one. False when the form has closed itself.
  bool begin();

  bool go(Control& control);
  bool goToLine(GridCells& column, int line);  // turns the page; lines count from 1
  bool enter();                                 // the next control but for plain buttons
  bool next();                                  // Tab: the next control, the first after the last
  bool previous();

  // False: nobody wanted it. A control's own keys come first, then the form's, then what the key does
  // by itself: Enter goes on, presses a button, picks in a list; Escape presses the cancel button.
  bool key(Key key);
  bool alt(std::string_view letter);  // the control whose caption marks that letter

  // Into the control that has the focus, key by key, with completion and a beep for each refused key.
  // A blank ticks a check box or presses a button; a letter looks for an item of a choice. False when
  // that control takes no text.
  bool type(std::string_view keys);
  bool type(Field& field, std::string_view keys) { return go(field) && type(keys); }

  // Goes there and replaces the text through the mask, without completion: one beep when any part of
  // it was refused. A memo takes plain text.
  bool set(Field& field, std::string_view text);
  bool set(Memo& memo, std::string_view text);

  // In place of the selection of the focused field or at the end of a memo, without completion.
  bool paste(std::string_view text);
  void select(Field& field, std::size_t cursor, std::size_t mark);  // bytes, as in Edit
  void edited(Memo& memo, std::string_view text);  // by a window's own editor: as Memo::setText

  bool press(Button& button);  // the cancel button leaves without onLeave
  bool check(Check& check, bool on);
  bool choose(Choice& choice, int index);  // -1: none
  bool doubleClick(Choice& choice);
  bool spin(Spin& spin, int value);  // beyond the range: a beep
  bool select(List& list, int row);  // -1: none
  bool select(List& list, std::vector<int> rows);
  bool pick(List& list, int row);  // a double click; a node of a tree opens or closes
  bool turn(Grid& grid, int page);
  bool page(Tabs& tabs, int page);
  bool close();  // by the closing box: asks mayClose, and no onLeave

 private:
  bool leave();
  bool step(int way, bool throughButtons);
  bool settled(bool result);
  bool reenter(Control& control);
  bool escape();
  bool usual(Control& control, Key key);
  bool onward(Control& control);
  bool vertical(Control& control, int way);
  bool pageKey(Control& control, int way);
  bool moveInList(List& list, int way);
  bool spinInPlace(Spin& spin, int way);
  bool erase(Control& control, bool backwards);
  bool browse(Field& field, int way);
  bool strike(Field& field, std::string_view key);
  bool typeInto(Control& control, std::string_view key);
  bool append(Memo& memo, std::string_view text);
  bool chooseByLetter(Choice& choice, std::string_view letter);
  void complete(Field& field, Edit& edit);
  void take(Field& field, Edit edit);

  Form& form_;
};

}  // namespace ui
