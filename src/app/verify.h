// The invariants of the books of the open company, each told by a rule that stands beside what it checks.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "session/session.h"
#include "session/violation.h"

namespace tarvex {

// Reads the archives of the open company and year, locks nothing and writes nothing; archive failures are
// reported as usual. Empty when all rules hold and there is nothing to tell. `step` is called before each
// rule, with its number from 0 and how many there are.
std::vector<Violation> verify(Session& session,
                              const std::function<void(std::size_t done, std::size_t all)>& step = {});

}  // namespace tarvex
