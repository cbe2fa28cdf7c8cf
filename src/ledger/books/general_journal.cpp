#include "ledger/books/general_journal.h"

#include <algorithm>
#include <utility>

#include "common/mask.h"
#include "common/text.h"

namespace tarvex {
namespace {

using common::Align;

constexpr std::size_t kWidth = 97;
constexpr int kAtOnce = 200;      // rows of a piece
constexpr int kCompanyEnds = 91;  // the print column
constexpr std::string_view kTitle = "                                     GIORNALE CONTABILITA'";
constexpr std::string_view kHeading1 = "Numero  Data reg.    N. e data doc.   Prot.";
constexpr std::string_view kHeading2 =
    "  Descrizione movimento                Conto                                   Dare         Avere";

std::string companyLine(std::string line, std::string_view text) {
  const auto length = static_cast<int>(common::length(text));
  ui::place(line, std::max(1, kCompanyEnds - length + 1), length, Align::left, text);
  return line;
}

void writeHead(ui::Paged& out, const JournalHeading& heading, int page) {
  out.bold(kTitle);
  out.line(companyLine(heading.isNumbered ? "Pag. " + std::to_string(page) : std::string(), heading.company));
  out.line(companyLine({}, heading.address));
  out.line(companyLine({}, heading.city));
  out.line(companyLine({}, heading.vatNumber.empty() ? std::string() : "P.IVA " + heading.vatNumber));
  out.rule();
  out.bold(kHeading1);
  out.bold(kHeading2);
  out.rule();
}

std::string amount(double value) { return common::format("##,###,##0.00", value); }
std::string total(common::Currency value) {
  return common::figure(common::format("####,###,##0.00", common::toDouble(value)), 15);
}

struct Printed {
  const rec::mc& row;
  long number;
  const std::string& conto;
};

constexpr ui::Column<Printed> kFirstLine[] = {
    {"Numero", 1, 7, Align::left, [](const Printed& p) { return common::zeroFill(p.number, 7); }},
    {"Data reg.", 9, 10, Align::left, [](const Printed& p) { return dateOf(p.row.datareg); }},
    {"N. e data doc.", 21, 17, Align::left, [](const Printed& p) { return documentOf(p.row); }},
    {"Prot.", 39, 6, Align::left, [](const Printed& p) { return protocolOf(p.row); }},
};
static_assert(ui::ordered(kFirstLine));

constexpr ui::Column<Printed> kSecondLine[] = {
    {"Descrizione movimento", 3, 37, Align::left, [](const Printed& p) { return p.row.descrizione; }},
    {"Conto", 40, 30, Align::left, [](const Printed& p) { return p.conto; }},
    {"Dare", 71, 13, Align::right, [](const Printed& p) { return amount(p.row.dare); }},
    {"Avere", 85, 13, Align::right, [](const Printed& p) { return amount(p.row.avere); }},
};
static_assert(ui::ordered(kSecondLine));

}  // namespace

void GeneralJournal::Sums::add(const rec::mc& row) {
  dare += common::toCurrency(row.dare);
  avere += common::toCurrency(row.avere);
}

GeneralJournal::GeneralJournal(Session& session, JournalPrint print, ui::Report& report)
    : print_(std::move(print)),
      walk_(JournalWalk::byDate(session, {session.WorkYear + "0101", print_.range.to})),
      names_(session),
      out_(
          report, kWidth, [this](ui::Paged& out, int page) { writeHead(out, print_.heading, page); },
          print_.firstPage),
      row_(print_.firstRow - 1) {}

bool GeneralJournal::more() {
  for (int i = 0; i < kAtOnce && !ended_; ++i) {
    const rec::mc* row = walk_.next();
    if (!row) {
      writeEnd();
      break;
    }
    ++read_;
    year_.add(*row);
    if (row->datareg >= print_.range.from) write(*row);
  }
  return !ended_;
}

void GeneralJournal::write(const rec::mc& row) {
  period_.add(row);
  const bool isNew = row.nummov != entry_ && !entry_.empty();
  out_.keep(isNew ? 3 : 2);
  if (isNew && !out_.atTop()) out_.line();
  entry_ = row.nummov;
  const Printed printed{row, ++row_, names_.of(row.conto)};
  out_.line(ui::line(kFirstLine, printed));
  out_.line(ui::line(kSecondLine, printed));
}

void GeneralJournal::writeEnd() {
  ended_ = true;
  if (walk_.isWhole()) return writeTotals();
  out_.line();
  out_.bold("STAMPA INCOMPLETA: il giornale non può essere letto fino alla fine");
}

void GeneralJournal::writeTotals() {
  const auto line = [](std::string_view name, const Sums& sums) {
    return common::fit(name, 20) + "Dare : " + total(sums.dare) + "   Avere: " + total(sums.avere);
  };
  out_.keep(3);
  out_.rule();
  out_.bold(line("Totali periodo", period_));
  out_.bold(line("Totali progressivi ", year_));
}

JournalReport layOutJournal(Session& session, const JournalPrint& print, ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Giornale di contabilità", ui::fitted(std::move(setup), kWidth));
  auto journal = std::make_shared<GeneralJournal>(session, print, *report);
  report->onDemand([journal] { return journal->more(); });
  return {report, journal};
}

}  // namespace tarvex
