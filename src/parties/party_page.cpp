// The selective list on paper and as a spreadsheet.
#include <algorithm>

#include "common/mask.h"
#include "common/text.h"
#include "parties/party_list.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using common::Align;
using Columns = std::vector<const PartyColumn*>;

constexpr std::size_t kUpright = 128, kAcross = 200;  // characters that can still be read

// The columns by the lines of a row: as many in each as the page is wide.
std::vector<Columns> flowed(const Columns& columns, std::size_t width) {
  std::vector<Columns> lines(1);
  std::size_t taken = 0;
  for (const PartyColumn* column : columns) {
    const auto wide = static_cast<std::size_t>(column->width);
    if (!lines.back().empty() && taken + 1 + wide > width) {
      lines.emplace_back();
      taken = 0;
    }
    taken += (lines.back().empty() ? 0 : 1) + wide;
    lines.back().push_back(column);
  }
  return lines;
}

std::size_t widthOf(const Columns& line) {
  std::size_t width = line.size() - 1;
  for (const PartyColumn* column : line) width += static_cast<std::size_t>(column->width);
  return width;
}

template <class Text>
std::string lineOf(const Columns& columns, const Text& text) {
  std::string line;
  int at = 1;
  for (const PartyColumn* column : columns) {
    ui::place(line, at, column->width, column->number ? Align::right : Align::left, text(*column));
    at += column->width + 1;
  }
  return line;
}

std::string cellOf(const PartyColumn& column, const ListedParty& row) {
  return column.number ? common::format("###,###,##0.00", column.number(row)) : column.text(row);
}

// What does not stand upright lies across the sheet, which then takes fewer lines.
ui::Setup setupFor(ui::Setup setup, std::size_t width) {
  if (width <= kUpright) return ui::fitted(std::move(setup), width);
  constexpr double across = 842 - 2 * 28, down = 595 - 2 * 28, letter = 0.6, leading = 1.2;
  const double widest = across / (letter * static_cast<double>(width));
  setup.landscape = true;
  setup.size = setup.size > 0 ? std::min(setup.size, widest) : widest;
  setup.pageLines = std::min(std::max(setup.pageLines, 1), static_cast<int>(down / (leading * setup.size)));
  return setup;
}

std::string_view titleOf(const PartyKind& kind) {
  if (kind.isCustomer()) return "STAMPA CLIENTI";
  return kind.tipo == kAgent.tipo ? "STAMPA AGENTI" : "STAMPA FORNITORI";
}

}  // namespace

std::shared_ptr<const ui::Report> listReport(Session& session, const PartyKind& kind, const Columns& columns,
                                             const PartyFilters& filters, ui::Setup setup) {
  const std::vector<Columns> lines = flowed(columns, widthOf(columns) <= kUpright ? kUpright : kAcross);
  std::size_t width = 30;
  for (const Columns& line : lines) width = std::max(width, widthOf(line));
  auto report = std::make_shared<ui::Report>(titleOf(kind), setupFor(std::move(setup), width));
  const std::vector<std::string> told = filters.told();
  ui::Paged out(*report, width, [&](ui::Paged& head, int page) {
    head.centred(titleOf(kind));
    const std::string date = "Data: " + session.TodayText;
    head.line(date + common::fit("Pag. " + std::to_string(page), width - date.size(), Align::right));
    if (page == 1 && !told.empty()) {
      head.line("Selezione:");
      for (const std::string& line : told) head.line(line);
      head.line();
    }
    for (const Columns& line : lines)
      head.bold(lineOf(line, [&](const PartyColumn& column) { return headOf(column, session); }));
    head.rule();
  });
  const auto write = [&](const ListedParty& row) {
    if (lines.size() > 1) out.keep(static_cast<int>(lines.size()) + 1);
    for (const Columns& line : lines)
      out.line(lineOf(line, [&](const PartyColumn& column) { return cellOf(column, row); }));
    if (lines.size() > 1) out.line();
  };
  if (!eachParty(session, kind, filters, write)) return nullptr;
  return report;
}

std::optional<ui::Sheet> listSheet(Session& session, const PartyKind& kind, const Columns& columns,
                                   const PartyFilters& filters) {
  ui::Sheet sheet{std::string(titleOf(kind)), {}, {{}}};
  for (const PartyColumn* column : columns) {
    sheet.widths.push_back(column->width + 2);
    sheet.rows.front().push_back(ui::textCell(common::trim(headOf(*column, session)), true));
  }
  const bool whole = eachParty(session, kind, filters, [&](const ListedParty& row) {
    auto& cells = sheet.rows.emplace_back();
    for (const PartyColumn* column : columns)
      cells.push_back(column->number ? ui::numberCell(column->number(row)) : ui::textCell(column->text(row)));
  });
  return whole ? std::optional(std::move(sheet)) : std::nullopt;
}

}  // namespace tarvex
