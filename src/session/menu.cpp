#include "session/menu.h"

#include "session/menu_tree.h"

namespace tarvex {

using menu::acts;
using menu::opens;

const std::vector<MenuEntry>& barKeys() {
  static const std::vector<MenuEntry> keys{
      acts("Esci", "p4", MenuAction::end),
      opens("Parametri", "p5", "PARGES"),
      opens("Foglio elettronico", "p6", "Foglio"),
      opens("TarvexWrite", "p7", "TVWRITE"),
      opens("Internet", "p8", "frmBrowser"),
      opens("Agenda", "p9", "AGENDA"),
      acts("Calcolatrice", "p10", MenuAction::calculator),
      opens("Rubrica", "p60", "RUBRICA"),
      opens("Lista piano conti", "p20", "LISTAPC"),
      acts("Disponi finestre", "p11", MenuAction::cascade),
      acts("Prima nota", "pn", MenuAction::journalKeys),
      opens("Movimento generico", "pn1", "MCMG"),
      opens("Fattura vendita", "pn2", "mcfv"),
      opens("Fattura acquisto", "pn3", "MCFA"),
      opens("Nota credito cliente", "pn4", "mccv"),
      opens("Nota credito fornitore", "pn5", "mcca"),
      opens("Incasso fattura", "pn6", "MCIF"),
      opens("Pagamento fattura", "pn7", "MCPF"),
      opens("Corrispettivo", "pn8", "mcco"),
      opens("Causali automatizzate", "pn9", "MCXX"),
  };
  return keys;
}

const std::vector<BarGroup>& sideBar() {
  static const std::vector<BarGroup> groups{
      {"Varie", {"p4", "p5", "p6", "p7", "p8", "p9", "p10", "p11", "p20", "p60"}},
      {"Prima nota", {"pn1", "pn2", "pn3", "pn4", "pn5", "pn6", "pn7", "pn8", "pn9"}},
  };
  return groups;
}

namespace {

template <class Wanted>
const MenuEntry* findIn(const std::vector<MenuEntry>& entries, const Wanted& wanted) {
  for (const MenuEntry& entry : entries) {
    if (wanted(entry)) return &entry;
    if (const MenuEntry* below = findIn(entry.children, wanted)) return below;
  }
  return nullptr;
}

template <class Wanted>
const MenuEntry* findAnywhere(const Wanted& wanted) {
  if (const MenuEntry* entry = findIn(menuTree(), wanted)) return entry;
  return findIn(barKeys(), wanted);
}

}  // namespace

const MenuEntry* findMenu(std::string_view name) {
  return findAnywhere([&](const MenuEntry& entry) { return entry.name == name; });
}

const MenuEntry* findMenuOfUnit(std::string_view unit, std::string_view mode) {
  if (unit.empty()) return nullptr;
  return findAnywhere([&](const MenuEntry& entry) { return entry.unit == unit && entry.mode == mode; });
}

}  // namespace tarvex
