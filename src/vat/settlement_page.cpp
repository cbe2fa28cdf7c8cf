// The settlement on paper.
#include <utility>

#include "common/text.h"
#include "vat/settlement.h"

namespace tarvex {
namespace {

using common::Align;

constexpr std::size_t kWidth = 60;
constexpr VatKind kPurchaseGroups[] = {VatKind::normal, VatKind::notDeductible, VatKind::exempt};
constexpr VatKind kSalesGroups[] = {VatKind::normal, VatKind::exempt};

constexpr ui::Column<VentilationLine> kVentilation[] = {
    {"Aliquota", 1, 17, Align::left, [](const VentilationLine& l) { return l.purchases.label; }},
    {"Imponibile", 18, 14, Align::right,
     [](const VentilationLine& l) { return totalAmount(l.sum.imponibile); }},
    {"Imposta", 32, 14, Align::right, [](const VentilationLine& l) { return totalAmount(l.sum.imposta); }},
};
static_assert(ui::ordered(kVentilation));

void writeSide(ui::Paged& out, std::string_view heading, std::span<const VatTotal> totals,
               std::span<const VatKind> groups) {
  out.keep(7);
  out.line();
  out.bold(heading);
  writeGroupedTotals(out, totals, groups);
}

void writeVentilation(ui::Paged& out, const Settlement& settlement) {
  out.keep(static_cast<int>(settlement.ventilation.size()) + 6);
  out.line();
  out.bold("           VENTILAZIONE IVA CORRISPETTIVI");
  out.line();
  out.bold(ui::heading(kVentilation));
  for (const VentilationLine& line : settlement.ventilation) out.line(ui::line(kVentilation, line));
  out.rule(45);
  VentilationLine sum{.purchases = {}, .quota = 0, .sum = settlement.ventilated};
  sum.purchases.label = "Totale";
  out.bold(ui::line(kVentilation, sum));
}

void writeFigures(ui::Paged& out, const Settlement& settlement) {
  const auto figures = figuresOf(settlement);
  out.keep(static_cast<int>(figures.size()) + 3);
  out.line();
  out.rule(45);
  for (const Figure& figure : figures) {
    std::string line = figure.name;
    ui::place(line, 32, 14, Align::right, totalAmount(figure.amount));
    out.bold(line);
  }
}

}  // namespace

std::shared_ptr<const ui::Report> layOut(const Settlement& settlement, const SettlementPage& page,
                                         ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Liquidazione iva", ui::fitted(std::move(setup), kWidth));
  ui::Paged out(*report, kWidth, [&](ui::Paged& head, int) {
    writeLetterhead(head, page.letterhead);
    head.centred(page.title);
    head.rule();
  });
  writeSide(out, "                   IVA ACQUISTI", settlement.purchases, kPurchaseGroups);
  writeSide(out, "                   IVA VENDITE ", settlement.sales, kSalesGroups);
  writeSide(out, "                  CORRISPETTIVI", settlement.receipts, kSalesGroups);
  if (settlement.terms.ventilation) writeVentilation(out, settlement);
  writeFigures(out, settlement);
  if (!page.note.empty()) {
    out.line();
    out.line("Note: " + page.note);
  }
  return report;
}

}  // namespace tarvex
