// What the archives hold of one party: its documents, its open items, its turnover.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "archives/xx.h"
#include "duedates/due_ledgers.h"
#include "session/session.h"

namespace tarvex {

// A kind of document on a card: where the record has its number and its date.
struct DocumentColumn {
  std::string_view head;
  std::string rec::xx::*number;
  std::string rec::xx::*date;
};

struct PartyDocument {
  std::string key;  // in xx
  // By the columns asked for: the number without its register, the date dd/mm/yy; empty where the document is
  // of another kind.
  std::vector<std::string> numbers, dates;
};

// In the order in which they were made; a failure is reported and ends the list.
std::vector<PartyDocument> documentsOf(Session& session, std::string_view code,
                                       std::span<const DocumentColumn> columns);

// The items of a ledger that are open, by date. A bank receipt is open until it is issued, and issued until
// it has fallen due.
std::vector<DueDate> openItemsOf(Session& session, DueLedger ledger, const std::string& code);

// By month, from 0. A year that the company does not have, and a record without a month, count nowhere.
using MonthlyTurnover = std::array<double, 12>;
MonthlyTurnover turnoverOf(Session& session, std::string_view code, const std::string& year);

}  // namespace tarvex
