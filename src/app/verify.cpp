#include "app/verify.h"

#include <span>
#include <utility>

#include "ledger/books/book_rules.h"
#include "ledger/due_rules.h"
#include "ledger/ledger_rules.h"
#include "vat/vat_rules.h"

namespace tarvex {

std::vector<Violation> verify(Session& session,
                              const std::function<void(std::size_t done, std::size_t all)>& step) {
  std::vector<Rule> rules;
  for (const std::span<const Rule> folder : {ledgerRules(), vatRules(), bookRules(), dueRules()})
    rules.insert(rules.end(), folder.begin(), folder.end());
  std::vector<Violation> violations;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    if (step) step(i, rules.size());
    for (Violation& found : rules[i].check(session)) {
      found.rule = rules[i].name;
      found.title = rules[i].title;
      found.repair = rules[i].repair;
      found.notice = rules[i].notice;
      violations.push_back(std::move(found));
    }
  }
  return violations;
}

}  // namespace tarvex
