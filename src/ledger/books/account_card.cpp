#include "ledger/books/account_card.h"

#include "chart/account_field.h"
#include "common/amount.h"
#include "common/text.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using common::Align;

constexpr std::size_t kWidth = 90;
constexpr std::string_view kTitle = "SCHEDA CONTABILE";
constexpr std::string_view kHeading1 = "Data reg.    N. e data doc.   Prot.";
constexpr std::string_view kHeading2 =
    "           Descrizione movimento                         Dare         Avere          Saldo";

// Sums of what is shown stay exact in cents.
void add(double& sum, double amount) { sum = common::roundBalance(sum + amount); }

CardRow rowOf(const rec::mc& row, const BookMoney& money) {
  return {dateOf(row.datareg), documentOf(row),    protocolOf(row),
          row.descrizione,     money.of(row.dare), money.of(row.avere)};
}

struct Printed {
  const CardRow& row;
  const BookMoney& money;
};

constexpr ui::Column<Printed> kFirstLine[] = {
    {"Data reg.", 1, 10, Align::left, [](const Printed& p) { return p.row.date; }},
    {"N. e data doc.", 14, 17, Align::left, [](const Printed& p) { return p.row.document; }},
    {"Prot.", 32, 6, Align::left, [](const Printed& p) { return p.row.protocol; }},
};
static_assert(ui::ordered(kFirstLine));

constexpr ui::Column<Printed> kSecondLine[] = {
    {"Descrizione movimento", 12, 36, Align::left, [](const Printed& p) { return p.row.text; }},
    {"Dare", 48, 14, Align::right, [](const Printed& p) { return p.money.text(p.row.dare); }},
    {"Avere", 62, 14, Align::right, [](const Printed& p) { return p.money.text(p.row.avere); }},
    {"Saldo", 76, 15, Align::right, [](const Printed& p) { return p.money.text(p.row.saldo); }},
};
static_assert(ui::ordered(kSecondLine));

constexpr ui::Column<Printed> kPeriodLine[] = {
    {"", 12, 36, Align::left, [](const Printed&) { return std::string("Totali periodo     "); }},
    kSecondLine[1],
    kSecondLine[2],
};

void writeClosing(ui::Paged& out, const AccountCard& card, const BookMoney& money) {
  const auto figure = [&](std::string_view name, double amount) {
    return std::string(name) + common::figure(money.text(amount), 15);
  };
  const std::string below(29, ' ');  // the figures stand under each other
  out.line(figure("Saldo iniz. : ", card.opening) + figure("            Prog. dare  : ", card.dare));
  out.line(below + figure("            Prog. Avere : ", card.avere));
  out.bold(below + figure("            Saldo Finale: ", card.closing()));
}

// Where a page breaks a card, the next one says whose rows go on, and from which balance.
struct Broken {
  const AccountCard* card = nullptr;
  double saldo = 0;
};

std::string nameOf(const AccountCard& card) { return "Sottoconto: " + card.name + "  (" + card.code + ")"; }

void write(ui::Paged& out, const AccountCard& card, const BookMoney& money, Broken& broken) {
  out.keep(8);
  out.bold(nameOf(card));
  for (const CardRow& row : card.rows) {
    out.keep(2);
    out.line(ui::line(kFirstLine, {row, money}));
    out.line(ui::line(kSecondLine, {row, money}));
    broken = {&card, row.saldo};
  }
  out.keep(5);
  CardRow sums;
  sums.dare = card.periodDare;
  sums.avere = card.periodAvere;
  out.line(ui::line(kPeriodLine, {sums, money}));
  writeClosing(out, card, money);
  broken = {};
  out.rule();
}

}  // namespace

double AccountCard::closing() const { return common::roundBalance(opening + dare - avere); }

std::optional<AccountCard> readCard(Session& session, const std::string& code, const DateRange& period,
                                    const BookMoney& money) {
  if (!readVoiceByCode(session, code, 2616)) return {};
  AccountCard card{.code = code, .name = session.pc.B.ragsoc};
  card.opening = isOpeningPosted(session) ? 0 : money.of(session.pc.B.saldoiniziale);
  JournalWalk walk = JournalWalk::byVoice(session, code, {session.WorkYear + "0101", period.to});
  while (const rec::mc* row = walk.next()) {
    CardRow shown = rowOf(*row, money);
    add(card.dare, shown.dare);
    add(card.avere, shown.avere);
    if (!period.holds(row->datareg)) continue;
    add(card.periodDare, shown.dare);
    add(card.periodAvere, shown.avere);
    shown.saldo = card.closing();
    card.rows.push_back(std::move(shown));
  }
  if (!walk.isWhole()) return {};
  return card;
}

std::shared_ptr<const ui::Report> layOutCards(const std::vector<AccountCard>& cards, const CardsPage& page,
                                              ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Scheda contabile", ui::fitted(std::move(setup), kWidth));
  Broken broken;
  ui::Paged out(*report, kWidth, [&](ui::Paged& head, int number) {
    head.centred(kTitle);
    head.line(page.company);
    head.right("Pagina " + std::to_string(number));
    head.line("Dal " + dateOf(page.period.from) + " al " + dateOf(page.period.to));
    if (!page.money.name().empty()) head.line(page.money.name());
    head.rule();
    head.bold(kHeading1);
    head.bold(kHeading2);
    head.rule();
    if (!broken.card) return;
    head.bold(common::fit(nameOf(*broken.card) + ", segue", kWidth - 15) +
              common::figure(page.money.text(broken.saldo), 15));
  });
  for (const AccountCard& card : cards) write(out, card, page.money, broken);
  return report;
}

}  // namespace tarvex
