// Progressivi contabili: what moved a voice, month by month.
#include "chart/account_field.h"
#include "common/amount.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/books/date_range.h"
#include "ledger/books/forms.h"
#include "session/printing.h"
#include "ui/form.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using namespace ui;

struct Month {
  std::string name;
  double dare = 0, avere = 0, saldo = 0;  // the balance at its end
};

std::string amount(double value) { return common::format("####,###,##0.00", value); }

constexpr Column<Month> kColumns[] = {
    {"Mese", 1, 20, common::Align::left, [](const Month& m) { return m.name; }},
    {"Dare", 21, 16, common::Align::right, [](const Month& m) { return amount(m.dare); }},
    {"Avere", 37, 16, common::Align::right, [](const Month& m) { return amount(m.avere); }},
    {"Saldo", 53, 16, common::Align::right, [](const Month& m) { return amount(m.saldo); }},
};
static_assert(ordered(kColumns));

// The opening balance, the twelve months, the year. Nothing when the journal cannot be read, which has been
// reported.
std::optional<std::vector<Month>> monthsOf(Session& session, const std::string& code, double opening) {
  std::vector<Month> months{{"Saldo iniziale", 0, 0, opening}};
  for (int month = 1; month <= 12; ++month) months.push_back({session.MonthNames[month]});
  Month year{"Totale"};
  JournalWalk walk = JournalWalk::byVoice(session, code, wholeYear(session));
  while (const rec::mc* row = walk.next()) {
    const double number = common::numberValue(row->datareg.substr(4, 2));
    if (number < 1 || number > 12) continue;  // a date that is none: verify tells it
    for (Month* sum : {&months[static_cast<std::size_t>(number)], &year}) {
      sum->dare = common::roundBalance(sum->dare + row->dare);
      sum->avere = common::roundBalance(sum->avere + row->avere);
    }
  }
  if (!walk.isWhole()) return {};
  for (std::size_t i = 1; i < months.size(); ++i)
    months[i].saldo = common::roundBalance(months[i - 1].saldo + months[i].dare - months[i].avere);
  year.saldo = months.back().saldo;
  months.push_back(year);
  return months;
}

class Progres : public Form {
 public:
  explicit Progres(Session& session);
  Layout layout() const override;

 private:
  std::optional<std::vector<Month>> compute();
  void show();
  void print();

  Session& session_;
  Field sottoconto{*this, "text1", "Sottoconto:", Mask::text(30)};
  Button mostra{*this, "mostra", "&Visualizza", Button::Role::main};
  List mesi{*this,
            "mesi",
            "Progressivi",
            {{"Mese", 18}, {"Dare", 18, true}, {"Avere", 18, true}, {"Saldo", 18, true}}};
  Button stampa{*this, "stampa", "&Stampa"};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Progres::Progres(Session& session)
    : Form(session.desk(), "PROGRES", "Progressivi contabili"), session_(session) {
  accountField(session, sottoconto, {"s", "c", "f", "ag"}, SearchList::postable);
  mesi.setHeight(14);  // the opening, twelve months, the year
  mostra.onPress = [this] { show(); };
  stampa.onPress = [this] { print(); };
  chiudi.onPress = [this] { close(); };
}

Layout Progres::layout() const {
  return column({row({sottoconto, mostra}), mesi, buttons({stampa, chiudi})});
}

std::optional<std::vector<Month>> Progres::compute() {
  const bool known = !sottoconto.empty() && readVoice(session_, sottoconto.text(), 2623);
  if (known && session_.pc.B.tipo != "m" && session_.pc.B.tipo != "cc") {
    const double opening = isOpeningPosted(session_) ? 0 : session_.pc.B.saldoiniziale;
    return monthsOf(session_, session_.pc.primaryKey(), opening);
  }
  desk().refuse("Non è stato inserito il sottoconto", sottoconto);
  return {};
}

void Progres::show() {
  std::vector<std::vector<std::string>> rows;
  if (const auto months = compute())
    for (const Month& month : *months)
      rows.push_back({month.name, amount(month.dare), amount(month.avere), amount(month.saldo)});
  mesi.setRows(std::move(rows));
}

void Progres::print() {
  const auto months = compute();
  if (!months) return;
  constexpr std::size_t width = 68;
  auto report = std::make_shared<Report>("Progressivi contabili", fitted(printSetup(session_), width));
  Paged out(*report, width, [&](Paged& head, int) {
    head.centred("PROGRESSIVI CONTABILI  Anno: " + session_.WorkYear);
    head.line(session_.CompanyName);
    head.bold("Sottoconto: " + sottoconto.text());
    head.rule();
    head.bold(heading(kColumns));
    head.rule();
  });
  for (const Month& month : *months) {
    if (&month == &months->back()) out.rule();
    out.line(line(kColumns, month));
  }
  desk().preview(std::move(report));
}

}  // namespace

std::unique_ptr<Form> makeProgres(Session& session) { return std::make_unique<Progres>(session); }

}  // namespace tarvex
