// How the amount of an invoice falls due by its payment condition, and the instalments that this writes.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "archives/cpag.h"
#include "duedates/due_ledgers.h"

namespace tarvex {

struct Instalment {
  std::string scadenza;  // yyyymmdd
  double importo = 0;

  bool operator==(const Instalment&) const = default;
};

// The instalments of `amount` from the invoice's date, yyyymmdd; none when the condition is but a
// description. Each takes the quota cut to cents, the first what is left over. They fall due one calendar
// month apart; the day follows the condition. A negative amount falls due at once and whole.
std::vector<Instalment> instalmentsOf(const rec::cpag& condition, double amount, std::string_view date);

// What an invoice makes due, still to be written.
struct DueDates {
  DueLedger ledger = DueLedger::sd;
  std::string numero, datafatt, conto;
  std::string tipo;  // of the condition: "rd" or "rb"
  std::vector<Instalment> instalments = {};
  std::string missingCondition = {};  // the name of one that is gone; then nothing falls due
};

// By the condition of the account. `date` is yyyymmdd, `account` the code of a customer, supplier or agent;
// of any other voice nothing falls due. Reads pc and cpag, writes nothing, shows nothing.
DueDates dueDatesFor(Session& session, double amount, std::string_view number, std::string_view date,
                     std::string_view account);

// The same by the condition chosen on a document.
DueDates dueDatesByCondition(Session& session, std::string_view condition, double amount,
                             std::string_view number, std::string_view date, std::string_view account);

// Adds one record for each instalment. One that stands in `replaced` with its number and dates, closed or
// issued, takes over its key, its payment and its issue: the entry that closed it finds it again.
void writeDueDates(Session& session, const DueDates& dates, std::vector<DueDate> replaced = {});

// Beep and "La condizione di pagamento ... non risulta più registrata", when that is so.
void tellMissingCondition(Session& session, const DueDates& dates);

// What the print of a document shows of the bank receipts just written: dates dd/mm/yyyy and amounts.
struct DocumentInstalments {
  std::array<std::string, 4> ScadenzeDocumento;
  std::array<double, 4> RateDocumento{};
};

// All of it at once: the instalments are reckoned and written, a missing condition is told. The arguments
// are those of dueDatesFor and dueDatesByCondition.
DocumentInstalments GenerateDueDates(Session& session, double amount, std::string_view number,
                                     std::string_view date, std::string_view account);
DocumentInstalments GenerateDueDatesForDocument(Session& session, std::string_view condition, double amount,
                                                std::string_view number, std::string_view date,
                                                std::string_view account);

}  // namespace tarvex
