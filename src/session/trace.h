// "Perché questo numero?": a total with the rows and the roundings that make it. A computation returns its
// trace; the screen only shows it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "session/session.h"

namespace tarvex {

struct TraceStep {
  std::string text;
  double amount = 0;
  bool isRounding = false;  // otherwise a row, or a total that this one takes in
};

struct TracedTotal {
  std::string name;
  double amount = 0;
  std::function<std::vector<TraceStep>()> steps;  // asked when the total is: they add up to `amount`
};

using Trace = std::vector<TracedTotal>;

// Runs the form `perche` over the totals, with the one at `first` chosen.
void showTrace(Session& session, const std::string& title, Trace trace, int first = 0);

}  // namespace tarvex
