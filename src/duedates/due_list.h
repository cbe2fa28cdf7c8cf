// What of a ledger of due dates the screens and the print show.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "duedates/due_ledgers.h"
#include "ui/control.h"

namespace tarvex {

struct ListedLedger {
  DueLedger ledger;
  std::string_view option, title, subject;  // of the choice, of the print, over the names
};
inline constexpr ListedLedger kListedLedgers[] = {
    {DueLedger::sd, "Clienti rimesse &dirette", "SCADENZARIO CLIENTI RIMESSE DIRETTE", "Cliente"},
    {DueLedger::st, "Clienti ricevute &bancarie", "SCADENZARIO CLIENTI RICEVUTE BANCARIE", "Cliente"},
    {DueLedger::sf, "&Fornitori", "SCADENZARIO FORNITORI", "Fornitore"},
};

struct ListedDue {
  DueDate due;
  std::string name;  // of the customer or supplier; empty when that voice is gone
};

// By due date: those that stand open; of bank receipts all, which are closed by their issue. An empty `last`
// is no end. Nothing when the ledger cannot be read, which has been reported.
std::optional<std::vector<ListedDue>> listDues(Session& session, DueLedger ledger, std::string_view first,
                                               std::string_view last = {});

// A choice of the ledger, the first of them chosen.
void offerLedgers(ui::Choice& choice);
const ListedLedger& chosenLedger(const ui::Choice& choice);

std::string shownDue(std::string_view date);  // dd/mm/yyyy

}  // namespace tarvex
