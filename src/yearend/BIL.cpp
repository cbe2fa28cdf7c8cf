// Stampa Bilancio: the balance sheet and the profit and loss account, out of the chart or of the journal.
#include "common/date.h"
#include "session/checks.h"
#include "session/printing.h"
#include "ui/form.h"
#include "yearend/balance.h"
#include "yearend/forms.h"

namespace tarvex {
namespace {

using namespace ui;

class Bil : public Form {
 public:
  explicit Bil(Session& session);
  Layout layout() const override;

 private:
  struct Computed {
    std::shared_ptr<const ChartVoices> voices;
    Balance balance;
  };
  void enable();
  std::optional<BalanceSource> source();
  std::optional<Computed> compute(const BalanceSource& source);
  void print();
  void explain();

  Session& session_;
  Choice lettura{*this,
                 "lettura",
                 "Lettura dati",
                 Choice::Look::options,
                 {"Dal &piano dei conti", "Dai &movimenti contabili"}};
  Field dalla{*this, "text2", "dalla data:", Mask::pattern(session_.YearDateMask)};
  Field alla{*this, "text1", "alla data:", Mask::pattern(session_.YearDateMask)};
  Check anteprima{*this, "Check2", "Anteprima di &stampa"};
  Check foglio{*this, "Check3", "&Carica dati nel foglio elettronico"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Bil::Bil(Session& session) : Form(session.desk(), "BIL", "Stampa Bilancio"), session_(session) {
  lettura.nameItems({"Option1", "Option2"});
  lettura.select(0);
  lettura.onChange = [this] { enable(); };
  for (Field* date : {&dalla, &alla}) date->setText(session.YearStartDate);
  anteprima.set(true);
  anteprima.onChange = [this] { foglio.set(false); };
  foglio.onChange = [this] { anteprima.set(false); };
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
  on(
      Key::F2, [this] { explain(); }, "perché questo numero?");
  enable();
}

Layout Bil::layout() const {
  return column({group("Lettura dati", {row({lettura}), row({dalla, alla})}),
                 group("Stampa", {row({anteprima, foglio})}), space(), buttons({ok, annulla})});
}

void Bil::enable() {
  if (lettura.index() < 0) lettura.select(0);
  dalla.setEnabled(lettura.index() == 1);
  alla.setEnabled(lettura.index() == 1);
}

// Nothing when a date is refused, which the user has been told, or the two are not in order.
std::optional<BalanceSource> Bil::source() {
  if (lettura.index() != 1) return BalanceSource{};
  for (Field* field : {&dalla, &alla}) {
    std::string date = field->text();
    if (ValidateDate(session_, date)) continue;
    field->focus();
    return {};
  }
  DateRange range{common::DateToKey(dalla.text()), common::DateToKey(alla.text())};
  if (range.from <= range.to) return BalanceSource{std::move(range)};
  desk().beep();
  alla.focus();
  return {};
}

// Nothing when an archive fails, which has been reported, or the user stops it.
std::optional<Bil::Computed> Bil::compute(const BalanceSource& source) {
  const Busy busy(desk());
  auto voices = readChart(session_);
  if (!voices) return {};
  const auto kept = std::make_shared<const ChartVoices>(std::move(*voices));
  const auto accounts = readAccounts(session_, *kept, source);
  if (!accounts) return {};
  return Computed{kept, makeBalance(*accounts, *kept)};
}

void Bil::print() {
  const auto asked = source();
  if (!asked) return;
  const auto computed = compute(*asked);
  if (!computed) return;
  if (foglio.on()) return showSheet(session_, sheetOf(computed->balance));
  const BalancePage page{*asked, session_.TodayText, session_.CompanyName};
  showReport(desk(), layOut(computed->balance, page, printSetup(session_)), anteprima.on());
}

void Bil::explain() {
  const auto asked = source();
  if (!asked) return;
  if (const auto computed = compute(*asked))
    showTrace(session_, title(), traceOf(session_, computed->voices, computed->balance, *asked));
}

}  // namespace

std::unique_ptr<Form> makeBil(Session& session) { return std::make_unique<Bil>(session); }

}  // namespace tarvex
