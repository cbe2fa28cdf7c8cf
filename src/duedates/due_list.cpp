#include "duedates/due_list.h"

#include <algorithm>
#include <unordered_map>

#include "common/date.h"

namespace tarvex {

std::optional<std::vector<ListedDue>> listDues(Session& session, DueLedger ledger, std::string_view first,
                                               std::string_view last) {
  auto dues = readDueDates(session, ledger, first, last);
  if (!dues) return {};
  std::unordered_map<std::string, std::string> names;
  std::vector<ListedDue> listed;
  for (DueDate& due : *dues) {
    if (ledger != DueLedger::st && !isOpen(due)) continue;
    const auto [name, isNew] = names.try_emplace(due.conto);
    if (isNew && session.pc.search(0, due.conto) == store::kOk) name->second = session.pc.B.ragsoc;
    listed.push_back({std::move(due), name->second});
  }
  return listed;
}

void offerLedgers(ui::Choice& choice) {
  for (const ListedLedger& ledger : kListedLedgers) choice.addItem(ledger.option);
  choice.select(0);
}

const ListedLedger& chosenLedger(const ui::Choice& choice) {
  return kListedLedgers[static_cast<std::size_t>(std::max(0, choice.index()))];
}

std::string shownDue(std::string_view date) { return common::SlashDate(common::KeyToDate(date)); }

}  // namespace tarvex
