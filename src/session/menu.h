// The menu tree, the side bar and the tool bars as data: what the frame offers, by caption and name, and what
// each entry opens.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace tarvex {

enum class Guard { none, shortBox, longBox };  // the window rule: other forms must be closed

// What an entry does. cascade, help, calculator and journalKeys are acts of the host's window.
enum class MenuAction { none, open, end, cascade, help, calculator, journalKeys };

struct MenuEntry {
  std::string_view caption;    // "&Fattura vendita"
  std::string_view name;       // "mbb2"
  std::string_view unit = {};  // "mcfv"; empty for a submenu or another action
  std::string_view mode = {};  // "agente": the supplier screens for agents
  Guard guard = Guard::none;
  MenuAction action = MenuAction::none;
  std::vector<MenuEntry> children = {};
};

const std::vector<MenuEntry>& menuTree();
const std::vector<MenuEntry>& barKeys();  // p4 ... pn9: the action table of side bar and tool bars

struct BarGroup {
  std::string_view caption;
  std::vector<std::string_view> keys;  // names of barKeys()
};
const std::vector<BarGroup>& sideBar();  // the two groups of ListBar1

// In the tree and the bars; nullptr when there is none.
const MenuEntry* findMenu(std::string_view name);
// The entry of the tree that opens the unit (otherwise the key of the bars); nullptr when there is none.
const MenuEntry* findMenuOfUnit(std::string_view unit, std::string_view mode);

}  // namespace tarvex
