// Stampa scadenzario.
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "duedates/due_list.h"
#include "duedates/forms.h"
#include "session/checks.h"
#include "session/printing.h"
#include "ui/form.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using namespace ui;
using common::Align;

constexpr std::size_t kWidth = 79;

std::string amount(double value) { return common::format("###,###,##0.00", value); }

constexpr Column<ListedDue> kColumns[] = {
    {"N.", 1, 6, Align::right,
     [](const ListedDue& l) {
       return common::format("######", common::numberValue(common::right(l.due.numero, 6)));
     }},
    {"data fatt.", 8, 10, Align::left, [](const ListedDue& l) { return shownDue(l.due.datafatt); }},
    {"Cliente", 20, 30, Align::left, [](const ListedDue& l) { return l.name; }},
    {"Importo", 50, 14, Align::right, [](const ListedDue& l) { return amount(l.due.importo); }},
    {"Scadenza", 66, 10, Align::left, [](const ListedDue& l) { return shownDue(l.due.scadenza); }},
    {"", 77, 2, Align::left, [](const ListedDue& l) { return l.due.tipo; }},
};
static_assert(ordered(kColumns));

std::string headingOf(const ListedLedger& ledger) {
  return " N. e data fatt.   " + common::fit(ledger.subject, 7 + 30) + "Importo  Scadenza ";
}

class Stscad : public Form {
 public:
  explicit Stscad(Session& session);
  Layout layout() const override;

 private:
  bool refused(Field& field);
  void print();
  std::shared_ptr<const Report> layOut(const std::vector<ListedDue>& dues);

  Session& session_;
  Choice tipo{*this, "tipo", "Scadenzario", Choice::Look::options};
  Field dalla{*this, "text1", "Dalla scadenza:", Mask::pattern("__/__/____")};
  Field alla{*this, "text2", "Alla scadenza:", Mask::pattern("__/__/____")};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stscad::Stscad(Session& session) : Form(session.desk(), "STSCAD", "Stampa scadenzario"), session_(session) {
  offerLedgers(tipo);
  dalla.setText(session.YearStartDate);
  alla.setText("31/12/" + session.WorkYear);
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stscad::layout() const {
  return column({group("Scadenzario", {row({tipo}), row({dalla, alla})}), group("Stampa", {row({anteprima})}),
                 space(), buttons({ok, annulla})});
}

bool Stscad::refused(Field& field) {
  std::string date = field.text();
  if (ValidateDate(session_, date)) return false;
  field.focus();
  return true;
}

void Stscad::print() {
  if (refused(dalla) || refused(alla)) return;
  const std::string first = common::DateToKey(dalla.text()), last = common::DateToKey(alla.text());
  if (last < first) return desk().refuse("La data finale è minore della data iniziale", alla);
  if (const auto dues = listDues(session_, chosenLedger(tipo).ledger, first, last))
    showReport(desk(), layOut(*dues), anteprima.on());
}

std::shared_ptr<const Report> Stscad::layOut(const std::vector<ListedDue>& dues) {
  const ListedLedger& ledger = chosenLedger(tipo);
  auto report = std::make_shared<Report>("Scadenzario", fitted(printSetup(session_), kWidth));
  Paged out(*report, kWidth, [&](Paged& head, int page) {
    head.centred(ledger.title);
    head.line(session_.CompanyName);
    const std::string number = "Pag. " + std::to_string(page);
    head.line(common::fit("Data: " + session_.TodayText, kWidth - number.size()) + number);
    head.bold(headingOf(ledger));
    head.rule();
  });
  double sum = 0;
  for (const ListedDue& due : dues) {
    out.line(line(kColumns, due));
    sum = common::roundBalance(sum + due.due.importo);
  }
  out.keep(2);
  out.rule();
  out.bold(common::fit("Totale", 48) + common::figure(amount(sum), 15));
  return report;
}

}  // namespace

std::unique_ptr<Form> makeStscad(Session& session) { return std::make_unique<Stscad>(session); }

}  // namespace tarvex
