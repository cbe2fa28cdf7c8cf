// The balance on paper.
#include <utility>

#include "common/mask.h"
#include "common/text.h"
#include "ui/paged.h"
#include "yearend/balance.h"

namespace tarvex {
namespace {

constexpr std::size_t kWidth = 84, kNameWidth = 30, kAmountWidth = 15;

std::string bodyLine(std::string_view name, double amount) {
  return common::fit(name, kNameWidth) +
         common::figure(common::format("####,###,##0.00", amount), kAmountWidth);
}

std::string titleOf(BalanceSide side, const BalanceSource& source) {
  const std::string name = isOfYear(side) ? "PROFITTI E PERDITE" : "SITUAZIONE PATRIMONIALE";
  if (!source.range) return name;
  return name + " (" + dateOf(source.range->from) + "-" + dateOf(source.range->to) + ")";
}

void writeHead(ui::Paged& out, const std::string& title, const BalancePage& page, int number) {
  const std::string left = "Data: " + page.today + "   " + title, right = "Pag. " + std::to_string(number);
  const std::size_t taken = common::length(left) + common::length(right);
  out.bold(left + std::string(taken < kWidth ? kWidth - taken : 1, ' ') + right);
  out.line(page.company);
  out.line();
}

void write(ui::Paged& out, const Balance& balance, BalanceSide side) {
  const BalanceHalf& half = balance.half(side);
  out.keep(5);
  if (!out.atTop()) out.line();
  out.bold(spacedName(side));
  for (const BalanceLine& line : half.lines) {
    if (line.kind == BalanceLine::Kind::account) {
      out.line(bodyLine(line.name, line.amount));
      continue;
    }
    out.keep(3);  // a head never stands alone at the end of a page
    if (line.kind == BalanceLine::Kind::mastro) out.line();
    out.bold(line.name);
  }
  out.keep(4);
  out.line();
  if (const double missing = balance.missing(side); missing != 0)
    out.line(bodyLine(resultName(side), missing));
  out.bold(bodyLine("Totale a pareggio", balance.levelled(side)));
}

}  // namespace

std::shared_ptr<const ui::Report> layOut(const Balance& balance, const BalancePage& page, ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Bilancio", ui::fitted(std::move(setup), kWidth));
  std::string title = titleOf(BalanceSide::assets, page.source);
  ui::Paged out(*report, kWidth, [&](ui::Paged& head, int number) { writeHead(head, title, page, number); });
  for (const BalanceSide side : kBalanceSides) {
    if (side == BalanceSide::costs) {
      title = titleOf(side, page.source);
      out.turn();
    }
    write(out, balance, side);
  }
  return report;
}

ui::Sheet sheetOf(const Balance& balance) {
  ui::Sheet sheet{"Bilancio", {static_cast<int>(kNameWidth) + 4, static_cast<int>(kAmountWidth)}, {}};
  const auto add = [&](std::string_view name, bool bold) {
    sheet.rows.push_back({ui::textCell(name, bold)});
  };
  const auto addAmount = [&](std::string_view name, double amount, bool bold = false) {
    sheet.rows.push_back({ui::textCell(name, bold), ui::numberCell(amount, bold)});
  };
  for (const BalanceSide side : kBalanceSides) {
    if (side == BalanceSide::assets) add("SITUAZIONE PATRIMONIALE", true);
    if (side == BalanceSide::costs) add("PROFITTI E PERDITE", true);
    add(plainName(side), true);
    for (const BalanceLine& line : balance.half(side).lines) {
      if (line.kind == BalanceLine::Kind::account)
        addAmount(line.name, line.amount);
      else
        add(line.name, true);
    }
    if (const double missing = balance.missing(side); missing != 0) addAmount(resultName(side), missing);
    addAmount("Totale a pareggio", balance.levelled(side), true);
  }
  return sheet;
}

}  // namespace tarvex
