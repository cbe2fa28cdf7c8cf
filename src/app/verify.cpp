#include "app/verify.h"

#include <iterator>

#include "ledger/books/book_rules.h"
#include "ledger/ledger_rules.h"
#include "vat/vat_rules.h"

namespace tarvex {

std::vector<Violation> verify(Session& session) {
  std::vector<Violation> violations;
  for (const auto rule : {checkJournal, checkNumbers, checkVatRows, checkRegisters, checkJournalBook}) {
    auto found = rule(session);
    std::move(found.begin(), found.end(), std::back_inserter(violations));
  }
  return violations;
}

}  // namespace tarvex
