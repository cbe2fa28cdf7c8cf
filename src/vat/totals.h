// The sums of VAT rows by code, as every summary gathers and prints them.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ui/paged.h"
#include "vat/vat_table.h"

namespace tarvex {

struct VatSum {
  double imponibile = 0, imposta = 0;

  void add(double taxable, double tax);  // kept in whole cents, so that what is printed adds up
  bool isZero() const { return imponibile == 0 && imposta == 0; }
  bool operator==(const VatSum&) const = default;
};

using SlotSums = std::array<VatSum, kVatSlots>;  // by slot of the table

// A line of a summary: a code with what its rows come to.
struct VatTotal {
  std::string label;  // rate and description of the code, cut to 17 characters
  VatKind kind = VatKind::normal;
  int slot = -1;  // of the table; -1: a sum of others
  VatSum sum;
};

// Which of the VAT archives the rows stand in.
enum class VatSide { sales, purchases, receipts };

// The slots with an amount, in the order of the table. On sales and receipts a code with a rate is normal,
// whether or not its VAT could be deducted.
std::vector<VatTotal> totalsOf(const SlotSums& sums, const VatTable& table, VatSide side);

// Those of one kind.
std::vector<VatTotal> ofKind(std::span<const VatTotal> totals, VatKind kind);

VatTotal sumOf(std::span<const VatTotal> totals, std::string label = "Totale");

// Under the heading "Aliquota             Imponibile       Imposta" the lines of `totals`, a rule and their
// sum.
void writeTotals(ui::Paged& out, std::span<const VatTotal> totals);

// The same in groups by kind, each under its name and with its sum; a kind without lines is left out, and
// exempt codes stand under a heading without a tax.
void writeGroupedTotals(ui::Paged& out, std::span<const VatTotal> totals, std::span<const VatKind> kinds);

// What all of them come to, under the same heading.
void writeGrandTotal(ui::Paged& out, std::span<const VatTotal> totals);

std::string totalAmount(double value);  // "###,###,##0.00"
std::string rateText(double percent);

}  // namespace tarvex
