// What makes each total of a register.
#include <utility>

#include "common/amount.h"
#include "common/text.h"
#include "vat/register.h"

namespace tarvex {
namespace {

// The rows of the slots, each with the amount that `amount` names.
std::function<std::vector<TraceStep>()> rowsOf(std::shared_ptr<const Register> content, int slot,
                                               double RegisterRow::*amount) {
  return [content = std::move(content), slot, amount] {
    std::vector<TraceStep> steps;
    for (const RegisterRow& row : content->rows)
      if (row.slot >= 0 && (slot < 0 || row.slot == slot)) steps.push_back({tracedText(row), row.*amount});
    return steps;
  };
}

void add(Trace& trace, const std::shared_ptr<const Register>& content, const VatTotal& total) {
  trace.push_back({total.label + ": imponibile", total.sum.imponibile,
                   rowsOf(content, total.slot, &RegisterRow::imponibile)});
  trace.push_back(
      {total.label + ": imposta", total.sum.imposta, rowsOf(content, total.slot, &RegisterRow::imposta)});
}

}  // namespace

std::string tracedText(const RegisterRow& row) {
  std::string text = row.numero + "  " + row.datareg;
  if (!row.ragsoc.empty()) text += "  " + common::cut(row.ragsoc, 30);
  return text + "  " + common::toText(row.imponibile) + " al " + rateText(row.aliquota) + "%";
}

Trace traceOf(std::shared_ptr<const Register> content) {
  Trace trace;
  for (const VatTotal& total : content->totals) add(trace, content, total);
  add(trace, content, sumOf(content->totals));
  return trace;
}

}  // namespace tarvex
