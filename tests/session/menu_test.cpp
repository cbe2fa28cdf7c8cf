#include "session/menu.h"

#include <doctest/doctest.h>

#include <map>
#include <set>
#include <string>

using namespace tarvex;

namespace {

template <class Visit>
void walk(const std::vector<MenuEntry>& entries, const Visit& visit) {
  for (const MenuEntry& entry : entries) {
    visit(entry);
    walk(entry.children, visit);
  }
}

std::string mnemonicsTwice(const std::vector<MenuEntry>& entries) {
  std::map<char, int> count;
  for (const MenuEntry& entry : entries) {
    const std::size_t at = entry.caption.find('&');
    if (at == std::string_view::npos || at + 1 == entry.caption.size()) continue;
    ++count[static_cast<char>(entry.caption[at + 1] | 0x20)];
  }
  std::string twice;
  for (const auto& [letter, times] : count)
    if (times > 1) twice += letter;
  return twice;
}

}  // namespace

TEST_CASE("every entry has a name of its own and does exactly one thing") {
  std::set<std::string_view> names;
  const auto check = [&](const MenuEntry& entry) {
    CAPTURE(entry.name);
    CHECK(names.insert(entry.name).second);
    CHECK(!entry.caption.empty());
    CHECK((entry.action == MenuAction::open) == !entry.unit.empty());
    CHECK((entry.action == MenuAction::none) == !entry.children.empty());
    CHECK(findMenu(entry.name) == &entry);
  };
  walk(menuTree(), check);
  walk(barKeys(), check);
  CHECK(findMenu("mbb99") == nullptr);
  std::size_t inSideBar = 0;
  for (const BarGroup& group : sideBar())
    for (const std::string_view key : group.keys) {
      CHECK(findMenu(key) != nullptr);
      ++inSideBar;
    }
  CHECK(inSideBar == barKeys().size() - 1);  // all but the key that shows the others
}

TEST_CASE("mnemonics within one menu differ, but for those that the captions have always had") {
  const std::map<std::string_view, std::string> known{
      {"mc400", "r"}, {"md", "o"}, {"mt", "f"}, {"m7", "iruvw"}};
  CHECK(mnemonicsTwice(menuTree()) == "");
  walk(menuTree(), [&](const MenuEntry& entry) {
    CAPTURE(entry.name);
    const auto found = known.find(entry.name);
    CHECK(mnemonicsTwice(entry.children) == (found == known.end() ? "" : found->second));
  });
}

TEST_CASE("exactly the entries that stand on closed windows are guarded") {
  const std::set<std::string_view> guarded{
      "agg55w67", "back10", "back20", "duplic",  "dx200", "m7c",  "mb3",  "mb9",        "mc9", "md4",
      "me1",      "mf1",    "mf2",    "mf3",     "mf4",   "mf5",  "mf5a", "mf6",        "mt6", "mu13",
      "mu21",     "mu6",    "mu7",    "passw12", "val1",  "val2", "val3", "varsi442442"};
  const std::set<std::string_view> writing{
      "REGBENE", "VARBENE",  "ANNBENE",  "AMMBENE",  "ANNAMM",   "PIANOBENE", "DIMISBENE", "REGRA",
      "ANNRA",   "REGCOMPO", "VARCOMPO", "REGPROFI", "ANNPROFI", "REGCARCO",  "REGscacc",  "REGSCACO"};
  const auto guardOf = [&](const MenuEntry& entry) {
    if (entry.name == "ma1" || entry.name == "ma3") return Guard::shortBox;
    const bool guards = guarded.contains(entry.name) || writing.contains(entry.unit);
    return guards ? Guard::longBox : Guard::none;
  };
  std::size_t count = 0;
  walk(menuTree(), [&](const MenuEntry& entry) {
    CAPTURE(entry.name);
    CHECK(entry.guard == guardOf(entry));
    count += entry.guard == Guard::longBox;
  });
  CHECK(count == guarded.size() + writing.size());
  walk(barKeys(), [](const MenuEntry& entry) { CHECK(entry.guard == Guard::none); });
}

TEST_CASE("the supplier screens have an entry of their own for agents") {
  for (const char* unit : {"RFORN", "VARFORN", "SPSFORN"}) {
    const MenuEntry* supplier = findMenuOfUnit(unit, "");
    const MenuEntry* agent = findMenuOfUnit(unit, "agente");
    REQUIRE(supplier != nullptr);
    REQUIRE(agent != nullptr);
    CHECK(supplier->name.substr(0, 2) == "mr");
    CHECK(agent->name.substr(0, 3) == "age");
  }
  CHECK(findMenuOfUnit("RCLIENTE", "agente") == nullptr);
  CHECK(findMenuOfUnit("Foglio", "")->name == "m7ff");
  CHECK(findMenuOfUnit("LISTAPC", "")->name == "p20");  // only in the bars
  CHECK(findMenuOfUnit("", "") == nullptr);
}
