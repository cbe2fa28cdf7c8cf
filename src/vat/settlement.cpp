#include "vat/settlement.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/amount.h"
#include "common/text.h"

namespace tarvex {
namespace {

int slotIgnoringCase(const VatTable& table, std::string_view code) {
  if (code.empty()) return -1;
  const std::string wanted = common::lower(code);
  for (int slot = 0; slot < kVatSlots; ++slot)
    if (common::lower(table[slot].codice) == wanted) return slot;
  return -1;
}

std::vector<VatTotal> gather(std::vector<RegisterRow>& rows, const VatTable& table, VatSide side) {
  SlotSums sums;
  for (RegisterRow& row : rows) {
    row.slot = slotIgnoringCase(table, row.codiva);
    if (row.slot >= 0) sums[row.slot].add(row.imponibile, row.imposta);
  }
  return totalsOf(sums, table, side);
}

bool isExcluded(const Ventilation& ventilation, std::string_view code) {
  return std::any_of(
      ventilation.excluded.begin(), ventilation.excluded.end(),
      [&](const std::string& excluded) { return common::lower(excluded) == common::lower(code); });
}

// The purchases with a rate, which the receipts are shared out among; none when there are no purchases.
std::vector<VentilationLine> ventilate(const Ventilation& ventilation, const std::vector<VatTotal>& purchases,
                                       const VatTable& table) {
  std::vector<VentilationLine> lines;
  double all = 0;
  for (const VatTotal& total : purchases) {
    const rec::civa& code = table[total.slot];
    if (code.aliquota <= 0 || isExcluded(ventilation, code.codice)) continue;
    all = common::roundBalance(all + total.sum.imponibile + total.sum.imposta);
    lines.push_back({.purchases = total, .quota = 0, .sum = {}});
  }
  if (all == 0) return {};
  for (VentilationLine& line : lines) {
    const double rate = table[line.purchases.slot].aliquota;
    line.quota = (line.purchases.sum.imponibile + line.purchases.sum.imposta) * ventilation.receipts / all;
    line.sum.imponibile = line.quota / ((rate + 100) / 100);
    line.sum.imposta = line.sum.imponibile * rate / 100 + 0.005;
  }
  return lines;
}

double vatOn(std::vector<VatTotal> totals) { return sumOf(totals).sum.imposta; }
double wholeEuros(double amount) { return std::floor(common::snapped(amount + 0.5)); }

}  // namespace

int VatPeriod::firstMonth() const {
  switch (length) {
    case Length::month:
      return number;
    case Length::quarter:
      return number * 3 - 2;
    case Length::year:
      break;
  }
  return 1;
}

int VatPeriod::lastMonth() const {
  switch (length) {
    case Length::month:
      return number;
    case Length::quarter:
      return number * 3;
    case Length::year:
      break;
  }
  return 12;
}

Settlement settle(SettlementTerms terms, SettlementRows& rows, const VatTable& table) {
  Settlement made;
  made.terms = std::move(terms);
  made.purchases = gather(rows.purchases, table, VatSide::purchases);
  made.sales = gather(rows.sales, table, VatSide::sales);
  made.receipts = gather(rows.receipts, table, VatSide::receipts);
  made.purchaseVat = vatOn(ofKind(made.purchases, VatKind::normal));
  made.salesVat = vatOn(made.sales);
  made.receiptsVat = vatOn(made.receipts);
  if (made.terms.ventilation) {
    made.ventilation = ventilate(*made.terms.ventilation, made.purchases, table);
    for (const VentilationLine& line : made.ventilation) {
      made.ventilated.imponibile += line.sum.imponibile;
      made.ventilated.imposta += line.sum.imposta;
    }
    made.receiptsVat = made.ventilated.imposta;
  }
  if (made.terms.wholeEuros)
    for (double* total : {&made.purchaseVat, &made.salesVat, &made.receiptsVat}) *total = wholeEuros(*total);
  made.result =
      common::roundBalance(made.terms.previous + made.purchaseVat - made.salesVat - made.receiptsVat);
  if (made.terms.interestPercent && made.isDebit() && -made.result > made.terms.minimum)
    made.interest = common::roundBalance(-made.result * *made.terms.interestPercent / 100);
  return made;
}

bool isCarried(const Settlement& settlement) {
  return settlement.result >= 0 || -settlement.result < settlement.terms.minimum;
}

std::vector<Figure> figuresOf(const Settlement& settlement) {
  std::vector<Figure> figures{
      {settlement.terms.previous < 0 ? "Debito precedente :" : "Credito precedente:",
       std::abs(settlement.terms.previous)},
      {"Iva acquisti:      ", settlement.purchaseVat},
      {"Iva vendite:       ", settlement.salesVat},
      {"Iva corrispettivi: ", settlement.receiptsVat},
      {settlement.isDebit() ? "Iva a debito:      " : "Iva a credito:     ", std::abs(settlement.result)},
  };
  if (!settlement.interest) return figures;
  figures.push_back({"Interessi:         ", *settlement.interest});
  figures.push_back({"Totale a debito:   ", settlement.due()});
  return figures;
}

std::string titleOf(const Session& session, const SettlementTerms& terms) {
  if (terms.period.length == VatPeriod::Length::year)
    return "Dati riepilogativi iva anno " + session.WorkYear;
  const int number = terms.period.number;
  std::string title = "LIQUIDAZIONE IVA  ";
  title += terms.period.length == VatPeriod::Length::month ? "Mese: " + session.MonthNames[number]
                                                           : std::to_string(number) + "° Trimestre";
  title += "  Anno: " + session.WorkYear;
  if (!terms.registro.empty()) title += "  Registro: " + terms.registro;
  return title;
}

}  // namespace tarvex
