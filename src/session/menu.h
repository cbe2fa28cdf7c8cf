// The menu tree, the side bar and the tool bars as data: what the frame offers, by caption and name, and what each
// entry opens.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace tarvex {

enum class Guard { none, shortBox, longBox };   // the window rule: other forms must be closed

enum class MenuAction { none, open, end, cascade, help, about, calculator, statusBar, journalKeys };

struct MenuEntry {
  std::string_view caption;                     // "&Fattura vendita"
  std::string_view name;                        // "mbb2"
  std::string_view unit;                        // "mcfv"; empty for a submenu or an action
  std::string_view mode = {};                   // "agente": the supplier screens for agents
  Guard guard = Guard::none;
  MenuAction action = MenuAction::none;
  std::vector<MenuEntry> children = {};
};

const std::vector<MenuEntry>& menuTree();
const std::vector<MenuEntry>& barKeys();        // p4 ... pn9: the action table of side bar and tool bars
const MenuEntry* findMenu(std::string_view name);                            // in the tree and the bars
const MenuEntry* findMenuOfUnit(std::string_view unit, std::string_view mode);  // the entry that opens it

}  // namespace tarvex
