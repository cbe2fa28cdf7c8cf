#include "vat/totals.h"

#include <utility>

#include "common/amount.h"
#include "common/mask.h"
#include "common/text.h"

namespace tarvex {
namespace {

using common::Align;

constexpr int kLabelWidth = 17;
constexpr std::string_view kHeading = "Aliquota             Imponibile       Imposta";
constexpr std::string_view kExemptHeading = "Articolo           Imponibile  ";

constexpr ui::Column<VatTotal> kColumns[] = {
    {"Aliquota", 1, kLabelWidth, Align::left, [](const VatTotal& t) { return t.label; }},
    {"Imponibile", 18, 14, Align::right, [](const VatTotal& t) { return totalAmount(t.sum.imponibile); }},
    {"Imposta", 32, 14, Align::right, [](const VatTotal& t) { return totalAmount(t.sum.imposta); }},
};
static_assert(ui::ordered(kColumns));

constexpr ui::Column<VatTotal> kExemptColumns[] = {kColumns[0], kColumns[1]};

struct Lines {
  std::string_view heading;
  std::string (*line)(const VatTotal&);
};
constexpr Lines kTaxed{kHeading, [](const VatTotal& t) { return ui::line(kColumns, t); }};
constexpr Lines kExempt{kExemptHeading, [](const VatTotal& t) { return ui::line(kExemptColumns, t); }};

VatKind kindOn(VatSide side, const rec::civa& code) {
  if (side == VatSide::purchases) return kindOf(code);
  return code.aliquota > 0 ? VatKind::normal : VatKind::exempt;
}

void write(ui::Paged& out, std::span<const VatTotal> totals, const Lines& lines) {
  out.keep(static_cast<int>(totals.size()) + 3);
  out.bold(lines.heading);
  for (const VatTotal& total : totals) out.line(lines.line(total));
  out.rule(common::length(kHeading));
  out.bold(lines.line(sumOf(totals)));
}

}  // namespace

std::string totalAmount(double value) { return common::format("###,###,##0.00", value); }
std::string rateText(double percent) { return common::format("##0.##", percent); }

void VatSum::add(double taxable, double tax) {
  imponibile = common::roundBalance(imponibile + taxable);
  imposta = common::roundBalance(imposta + tax);
}

std::vector<VatTotal> totalsOf(const SlotSums& sums, const VatTable& table, VatSide side) {
  std::vector<VatTotal> totals;
  for (int slot = 0; slot < kVatSlots; ++slot) {
    if (sums[slot].isZero()) continue;
    const rec::civa& code = table[slot];
    totals.push_back({common::cut(rateText(code.aliquota) + " " + code.descrizione, kLabelWidth),
                      kindOn(side, code), slot, sums[slot]});
  }
  return totals;
}

std::vector<VatTotal> ofKind(std::span<const VatTotal> totals, VatKind kind) {
  std::vector<VatTotal> found;
  for (const VatTotal& total : totals)
    if (total.kind == kind) found.push_back(total);
  return found;
}

VatTotal sumOf(std::span<const VatTotal> totals, std::string label) {
  VatTotal all{.label = std::move(label), .sum = {}};
  for (const VatTotal& total : totals) all.sum.add(total.sum.imponibile, total.sum.imposta);
  return all;
}

void writeTotals(ui::Paged& out, std::span<const VatTotal> totals) { write(out, totals, kTaxed); }

void writeGroupedTotals(ui::Paged& out, std::span<const VatTotal> totals, std::span<const VatKind> kinds) {
  for (const VatKind kind : kinds) {
    const auto group = ofKind(totals, kind);
    if (group.empty()) continue;
    out.keep(static_cast<int>(group.size()) + 5);
    out.line();
    out.bold(nameOf(kind));
    write(out, group, kind == VatKind::exempt ? kExempt : kTaxed);
  }
}

void writeGrandTotal(ui::Paged& out, std::span<const VatTotal> totals) {
  out.keep(3);
  out.line();
  out.bold(kHeading);
  out.bold(kTaxed.line(sumOf(totals)));
}

}  // namespace tarvex
