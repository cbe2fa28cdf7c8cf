#include "ledger/books/journal_list.h"

#include <utility>

#include "common/amount.h"
#include "common/currency.h"
#include "common/mask.h"
#include "common/text.h"
#include "ui/desk.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using common::Align;

std::string amount(double value) { return common::format("##,###,##0.00", value); }

struct Listed {
  const rec::mc& row;
  const std::string& key;
  const std::string& conto;
};

constexpr ui::Column<Listed> kEntryColumns[] = {
    {"Data reg.", 1, 10, Align::left, [](const Listed& p) { return dateOf(p.row.datareg); }},
    {"N. e data doc.", 12, 17, Align::left, [](const Listed& p) { return documentOf(p.row); }},
    {"Prot.", 30, 5, Align::left, [](const Listed& p) { return protocolOf(p.row); }},
    {"Descrizione movimento", 36, 30, Align::left, [](const Listed& p) { return p.row.descrizione; }},
    {"Sottoconto", 67, 26, Align::left, [](const Listed& p) { return p.conto; }},
    {"Dare", 93, 14, Align::right, [](const Listed& p) { return amount(p.row.dare); }},
    {"Avere", 107, 14, Align::right, [](const Listed& p) { return amount(p.row.avere); }},
};
static_assert(ui::ordered(kEntryColumns));
constexpr std::size_t kEntryWidth = 120;

constexpr ui::Column<Listed> kControlColumns[] = {
    {"Riga", 1, 8, Align::left, [](const Listed& p) { return p.key; }},
    {"Mov.", 10, 7, Align::right, [](const Listed& p) { return p.row.nummov; }},
    {"Data reg.", 18, 10, Align::left, [](const Listed& p) { return dateOf(p.row.datareg); }},
    {"N. e data doc.", 29, 17, Align::left, [](const Listed& p) { return documentOf(p.row); }},
    {"Prot.", 47, 5, Align::left, [](const Listed& p) { return protocolOf(p.row); }},
    {"Descrizione movimento", 53, 26, Align::left, [](const Listed& p) { return p.row.descrizione; }},
    {"Sottoconto", 80, 24, Align::left, [](const Listed& p) { return p.conto; }},
    {"Dare", 104, 14, Align::right, [](const Listed& p) { return amount(p.row.dare); }},
    {"Avere", 118, 14, Align::right, [](const Listed& p) { return amount(p.row.avere); }},
};
static_assert(ui::ordered(kControlColumns));
constexpr std::size_t kControlWidth = 131;

struct Sums {
  common::Currency dare = 0, avere = 0;
  void add(const rec::mc& row) {
    dare += common::toCurrency(row.dare);
    avere += common::toCurrency(row.avere);
  }
};

void writeSums(ui::Paged& out, const Sums& sums) {
  const auto figure = [](std::string_view name, common::Currency value) {
    return std::string(name) +
           common::figure(common::format("####,###,##0.00", common::toDouble(value)), 15);
  };
  out.keep(3);
  out.rule();
  out.bold(figure("            Dare : ", sums.dare));
  out.bold(figure("            Avere: ", sums.avere));
}

// Calls `each` on the rows of the walk while the user lets it; false when it was stopped or cannot be read.
template <class Each>
bool forEach(Session& session, JournalWalk& walk, const Each& each) {
  constexpr std::size_t atOnce = 500;
  const ui::Busy busy(session.desk());
  const std::size_t all = journalRows(session);
  std::size_t done = 0;
  while (const rec::mc* row = walk.next()) {
    each(*row);
    if (++done % atOnce == 0 && !session.desk().progress(done, all)) return false;
  }
  return walk.isWhole();
}

// Tells where one entry ends and the next begins, and whether the one that has ended balances.
class Balance {
 public:
  bool isNew(const rec::mc& row) const { return !entry_.empty() && row.nummov != entry_; }
  void add(const rec::mc& row) {
    entry_ = row.nummov;
    sums_.add(row);
  }
  // "*** Sbilancio di 10,00", or nothing.
  std::string fault() const {
    const double difference = common::roundBalance(common::toDouble(sums_.dare - sums_.avere));
    if (difference == 0) return {};
    return "*** Movimento " + entry_ + ": sbilancio di " + common::toText(difference);
  }

 private:
  std::string entry_;
  Sums sums_;
};

}  // namespace

std::shared_ptr<const ui::Report> layOutEntries(Session& session, const DateRange& period,
                                                const ListedKind& kind, ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Prima nota", ui::fitted(std::move(setup), kEntryWidth));
  ui::Paged out(*report, kEntryWidth, [&](ui::Paged& head, int page) {
    head.centred("PRIMA NOTA");
    head.line(session.CompanyName);
    head.right("Pagina " + std::to_string(page));
    head.line("Dal " + dateOf(period.from) + " al " + dateOf(period.to) +
              (kind.causale.empty() ? std::string() : "   " + std::string(kind.name)));
    head.rule();
    head.bold(ui::heading(kEntryColumns));
    head.rule();
  });
  VoiceNames names(session);
  Sums sums;
  std::string entry;
  JournalWalk walk = JournalWalk::byDate(session, period);
  const bool whole = forEach(session, walk, [&](const rec::mc& row) {
    if (!kind.causale.empty() && row.causale != kind.causale) return;
    sums.add(row);
    if (!entry.empty() && row.nummov != entry && !out.atTop()) out.line();
    entry = row.nummov;
    out.line(ui::line(kEntryColumns, {row, walk.key(), names.of(row.conto)}));
  });
  if (!whole) return nullptr;
  writeSums(out, sums);
  return report;
}

std::shared_ptr<const ui::Report> layOutControl(Session& session, ui::Setup setup) {
  auto report =
      std::make_shared<ui::Report>("Controllo prima nota", ui::fitted(std::move(setup), kControlWidth));
  ui::Paged out(*report, kControlWidth, [&](ui::Paged& head, int page) {
    head.centred("CONTROLLO PRIMA NOTA  Anno: " + session.WorkYear);
    head.line(session.CompanyName);
    head.right("Pagina " + std::to_string(page));
    head.rule();
    head.bold(ui::heading(kControlColumns));
    head.rule();
  });
  VoiceNames names(session);
  Sums sums;
  Balance balance;
  const auto tellFault = [&] {
    if (const std::string fault = balance.fault(); !fault.empty()) out.bold(fault);
  };
  JournalWalk walk = JournalWalk::byNumber(session);
  const bool whole = forEach(session, walk, [&](const rec::mc& row) {
    if (balance.isNew(row)) {
      tellFault();
      balance = {};
    }
    // An open item that came over from another year stands by itself.
    if (row.datareg.starts_with(session.WorkYear)) balance.add(row);
    sums.add(row);
    out.line(ui::line(kControlColumns, {row, walk.key(), names.of(row.conto)}));
  });
  if (!whole) return nullptr;
  tellFault();
  writeSums(out, sums);
  return report;
}

}  // namespace tarvex
