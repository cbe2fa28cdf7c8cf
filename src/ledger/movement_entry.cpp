#include "ledger/movement_entry.h"

#include <algorithm>
#include <cmath>

#include "common/amount.h"
#include "common/text.h"

namespace tarvex {
namespace {

double greatestOf(const MovementLine& line) { return std::max(std::fabs(line.dare), std::fabs(line.avere)); }

}  // namespace

LineFault faultOf(const MovementLine& line) {
  const bool account = !common::trim(line.conto).empty();
  if (line.dare != 0 && line.avere != 0) return LineFault::bothSides;
  const bool amount = line.dare != 0 || line.avere != 0;
  if (account && !amount) return LineFault::noAmount;
  return amount && !account ? LineFault::noAccount : LineFault::none;
}

double imbalance(const Movement& movement) {
  double dare = 0, avere = 0;
  for (const MovementLine& line : movement.lines) {
    dare += line.dare;
    avere += line.avere;
  }
  return common::roundBalance(dare - avere);
}

void convertFromLire(Movement& movement, double rate) {
  for (MovementLine& line : movement.lines) {
    line.dare = common::LireToEuro(line.dare, rate);
    line.avere = common::LireToEuro(line.avere, rate);
  }
  const auto greatest = std::max_element(
      movement.lines.begin(), movement.lines.end(),
      [](const MovementLine& a, const MovementLine& b) { return greatestOf(a) < greatestOf(b); });
  const double rest = imbalance(movement);
  if (rest == 0) return;
  if (greatest->dare != 0)
    greatest->dare = common::roundBalance(greatest->dare - rest);
  else
    greatest->avere = common::roundBalance(greatest->avere + rest);
}

Entry movementEntry(const Movement& movement) {
  Entry entry;
  entry.head.causale = "mg";
  entry.head.datareg = movement.datareg;
  entry.head.datadoc = movement.datadoc;
  entry.head.numdoc = common::right(common::zeroFill(movement.numero, 6), 6);
  for (const MovementLine& line : movement.lines) {
    if (line.codice.empty()) continue;
    entry.lines.push_back({line.codice, line.dare, line.avere, movement.descrizione + line.agg});
    entry.rows.push_back(
        {line.conto, line.agg, common::numberText(line.dare), common::numberText(line.avere)});
  }
  return entry;
}

}  // namespace tarvex
