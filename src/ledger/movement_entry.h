// Generic movements as values, and the entry that each becomes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ledger/posting.h"

namespace tarvex {

struct MovementLine {
  std::string codice;  // of the voice; filled by the last check
  std::string conto;   // its description, as typed
  std::string agg;     // added to the description of the movement
  double dare = 0, avere = 0;
};

struct Movement {
  std::string datareg, datadoc;  // dd/mm/yyyy
  std::string numero;            // as typed
  std::string descrizione;
  std::vector<MovementLine> lines;  // in the order of the screen, empty ones included
};

// What is wrong with a line, in the order in which it is asked.
enum class LineFault { none, bothSides, noAmount, noAccount };
LineFault faultOf(const MovementLine& line);

// `dare` less `avere` of all lines, rounded as balances are.
double imbalance(const Movement& movement);

// Each amount converted by itself, at `rate` Lire for one Euro. The cents by which the two sides then differ
// are put on the greatest amount: what balanced in Lire balances in Euro.
void convertFromLire(Movement& movement, double rate);

// A line for each one with an account; the rows of the screen.
Entry movementEntry(const Movement& movement);

}  // namespace tarvex
