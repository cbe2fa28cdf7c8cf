// What makes each figure of a settlement.
#include <cmath>

#include "common/amount.h"
#include "common/text.h"
#include "vat/settlement.h"

namespace tarvex {
namespace {

using Steps = std::vector<TraceStep>;

// The difference that takes the steps to `amount`, told under `why`; none when they make it already.
void closeBy(Steps& steps, double amount, std::string_view why) {
  double sum = 0;
  for (const TraceStep& step : steps) sum += step.amount;
  const double difference = common::snapped(amount - sum);
  if (std::abs(difference) >= 0.0000005) steps.push_back({std::string(why), difference, true});
}

bool holds(std::span<const VatTotal> totals, int slot) {
  for (const VatTotal& total : totals)
    if (total.slot == slot) return true;
  return false;
}

// The rows behind the totals given, then the rounding to the Euro.
Steps rowSteps(const std::vector<RegisterRow>& rows, std::span<const VatTotal> totals, double amount) {
  Steps steps;
  for (const RegisterRow& row : rows)
    if (holds(totals, row.slot)) steps.push_back({tracedText(row), row.imposta});
  closeBy(steps, amount, "Arrotondamento all'Euro");
  return steps;
}

Steps ventilationSteps(const Settlement& settlement) {
  Steps steps;
  for (const VentilationLine& line : settlement.ventilation)
    steps.push_back({line.purchases.label + ": quota " + common::toText(line.quota) + ", imponibile " +
                         common::toText(line.sum.imponibile),
                     line.sum.imposta});
  closeBy(steps, settlement.receiptsVat, "Arrotondamento all'Euro");
  return steps;
}

Steps resultSteps(const Settlement& settlement) {
  const double sign = settlement.isDebit() ? -1 : 1;
  Steps steps{{settlement.terms.previous < 0 ? "Debito precedente" : "Credito precedente",
               sign * settlement.terms.previous},
              {"Iva acquisti", sign * settlement.purchaseVat},
              {"Iva vendite", -sign * settlement.salesVat},
              {"Iva corrispettivi", -sign * settlement.receiptsVat}};
  closeBy(steps, std::abs(settlement.result), "Arrotondamento al centesimo");
  return steps;
}

Steps interestSteps(const Settlement& settlement) {
  const double debit = -settlement.result, percent = settlement.terms.interestPercent.value_or(0);
  Steps steps{{common::toText(debit) + " x " + common::toText(percent) + "%", debit * percent / 100}};
  closeBy(steps, settlement.interest.value_or(0), "Arrotondamento al centesimo");
  return steps;
}

}  // namespace

Trace traceOf(const Settlement& settlement, std::shared_ptr<const SettlementRows> rows) {
  const auto kept = std::make_shared<const Settlement>(settlement);
  const std::function<Steps()> makers[] = {
      [kept] {
        return Steps{{"Saldo riportato dal periodo precedente", std::abs(kept->terms.previous)}};
      },
      [kept, rows] {
        return rowSteps(rows->purchases, ofKind(kept->purchases, VatKind::normal), kept->purchaseVat);
      },
      [kept, rows] { return rowSteps(rows->sales, kept->sales, kept->salesVat); },
      [kept, rows] {
        return kept->terms.ventilation ? ventilationSteps(*kept)
                                       : rowSteps(rows->receipts, kept->receipts, kept->receiptsVat);
      },
      [kept] { return resultSteps(*kept); },
      [kept] { return interestSteps(*kept); },
      [kept] {
        return Steps{{"Iva a debito", -kept->result}, {"Interessi", kept->interest.value_or(0)}};
      },
  };
  Trace trace;
  for (const Figure& figure : figuresOf(settlement))
    trace.push_back({common::trim(figure.name), figure.amount, makers[trace.size()]});
  return trace;
}

}  // namespace tarvex
