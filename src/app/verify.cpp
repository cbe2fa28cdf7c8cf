#include "app/verify.h"

#include <iterator>

#include "ledger/ledger_rules.h"
#include "vat/vat_rules.h"

namespace tarvex {

std::vector<Violation> verify(Session& session) {
  std::vector<Violation> violations;
  for (const auto rule : {checkJournal, checkNumbers, checkVatRows}) {
    auto found = rule(session);
    std::move(found.begin(), found.end(), std::back_inserter(violations));
  }
  return violations;
}

}  // namespace tarvex
