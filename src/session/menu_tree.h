// The parts that the menu tree is written in.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "session/menu.h"

namespace tarvex::menu {

inline MenuEntry opens(std::string_view caption, std::string_view name, std::string_view unit,
                       Guard guard = Guard::none, std::string_view mode = {}) {
  return {caption, name, unit, mode, guard, MenuAction::open, {}};
}

inline MenuEntry acts(std::string_view caption, std::string_view name, MenuAction action) {
  return {caption, name, {}, {}, Guard::none, action, {}};
}

inline MenuEntry submenu(std::string_view caption, std::string_view name, std::vector<MenuEntry> children) {
  return {caption, name, {}, {}, Guard::none, MenuAction::none, std::move(children)};
}

inline constexpr Guard W = Guard::longBox;
inline constexpr std::string_view kAgents = "agente";

MenuEntry warehouseMenu();  // menu_trade.cpp
MenuEntry documentsMenu();
MenuEntry variousMenu();
MenuEntry helpMenu();

}  // namespace tarvex::menu
