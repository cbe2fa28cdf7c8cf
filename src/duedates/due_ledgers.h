// The three ledgers of due dates as one: sd (customers by direct remittance), st (customers by bank receipt),
// sf (suppliers and agents). Every instalment of the system is written, closed and removed here.
//
// None of these opens a group: called inside the posting of an entry they are part of it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace tarvex {

enum class DueLedger { sd, st, sf };
inline constexpr DueLedger kDueLedgers[] = {DueLedger::sd, DueLedger::st, DueLedger::sf};

struct DueDate {
  DueLedger ledger = DueLedger::sd;
  std::string key = {};  // eight digits
  std::string numero, datafatt, conto;
  double importo = 0;
  std::string scadenza;        // dates yyyymmdd
  std::string pagamento = {};  // of sd and sf: registration date of what closed it
  std::string tipo = {};       // of sf: "rd" or "rb"
  std::string emessa = {};     // of st: "s" once the receipt is issued
};

// One that no collection or payment has closed. A bank receipt is never closed by this field.
inline bool isOpen(const DueDate& due) { return due.pagamento.empty(); }

// Whether two invoice numbers are the same: by the value of their last characters.
bool sameNumber(std::string_view one, std::string_view other, std::size_t digits = 5);

// All of a ledger that fall due from `first` to `last`, both yyyymmdd, by date; an empty `last` is no end.
// Nothing when the ledger cannot be read to its end, which has been reported.
std::optional<std::vector<DueDate>> readDueDates(Session& session, DueLedger ledger, std::string_view first,
                                                 std::string_view last = {});

// All of one account, by key; a failure is reported and ends the list.
std::vector<DueDate> dueDatesOf(Session& session, DueLedger ledger, std::string_view conto);

// Draws the next key from the counter of the ledger (`pr` "scaclird", "scaclitr", "scafornrd": locks it,
// reads, adds 1, rewrites, flushes, unlocks) and adds the record. The key; empty after a failure, which has
// been reported.
std::string addDueDate(Session& session, const DueDate& due);

// Adds it under the key that it has: one that was removed in the same group.
void putDueDateBack(Session& session, const DueDate& due);

// Locks the record, reads it, rewrites it with what `change` makes of it, unlocks. False when it is gone or
// after a failure that has been reported.
bool changeDueDate(Session& session, DueLedger ledger, std::string_view key,
                   const std::function<void(DueDate&)>& change);

void removeDueDate(Session& session, DueLedger ledger, std::string_view key);

// What an entry says of the instalment that it closes.
struct InstalmentRef {
  std::string conto, numero;
  std::string datafatt;       // yyyymmdd
  std::string scadenza = {};  // yyyymmdd; empty: the first one
};

// Marks the open instalment with the lowest key that fits as closed on `date`, yyyymmdd: one and no more. Its
// key; empty when none fits.
std::string closeInstalment(Session& session, DueLedger ledger, const InstalmentRef& instalment,
                            std::string_view date);

// Undoes it: the one with the lowest key that fits and stands closed on `date` is open again.
std::string reopenInstalment(Session& session, DueLedger ledger, const InstalmentRef& instalment,
                             std::string_view date);

// Deletes the instalments of one document from all three ledgers: those of its account, number and date with
// the sign of its amount, which tells an invoice from a credit note with its number. Where several documents
// share all that, those with the lowest keys that come to the amount. What was deleted.
std::vector<DueDate> removeDueDates(Session& session, const InstalmentRef& document, double amount);

}  // namespace tarvex
