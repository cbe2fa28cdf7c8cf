// Finding a control by what a person would call it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/form.h"

namespace ui {

struct Found {
  Control* control = nullptr;   // null: nothing is called so
  int option = -1;              // the name was the caption of this item of a Choice
  GridCells* column = nullptr;  // the control is a cell of this column ...
  int line = 0;                 // ... and shows this line once User::goToLine has turned the page
  bool onOtherPage() const { return column && (line - 1) / column->grid().rows() != column->grid().page(); }
};

// By name, whatever the case; then by caption, compared as foldedCaption() says: of several equal ones
// the first visible one, those on shown pages of tabs before the others; "caption#2" is the second
// one, "group/caption" the one inside the group box or page of tabs of that title (a caption that
// holds a "/" or "#2" itself is tried whole first). Last the captions of options. A cell's name may
// bear any line of its grid: "conto(21)".
Found find(Form& form, std::string_view name);

struct FoundPage {
  Tabs* tabs = nullptr;  // null: no page is called so
  int page = 0;
};
FoundPage findPage(Form& form, std::string_view title);

// The item or row that reads `text`, or number n from 0 for "#n"; -1 for none. A row is told by its
// whole text (cells parted by one blank) or by any of its cells, the first column before the others.
int itemOf(const Choice& choice, std::string_view text);
int rowOf(const List& list, std::string_view text);

struct Mnemonic {
  std::string letter;  // a capital
  Control* control;
  int option;  // of an item of options or a page of tabs; -1: the control's own caption
};
std::vector<Mnemonic> mnemonics(const Form& form);

// Faults that every form must be free of, as sentences: controls not placed once, mnemonics alike,
// names alike.
std::vector<std::string> faultsOf(const Form& form);

}  // namespace ui
