// Stampa scheda contabile: the cards of one voice or of many.
#include "chart/account_field.h"
#include "ledger/books/account_card.h"
#include "ledger/books/date_range.h"
#include "ledger/books/forms.h"
#include "ledger/books/voices.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Stsched : public Form {
 public:
  explicit Stsched(Session& session);
  Layout layout() const override;

 private:
  bool isOfOne() const { return scelta.index() <= 0; }
  std::optional<std::vector<std::string>> voices();
  std::optional<std::vector<AccountCard>> cards(const DateRange& period, const BookMoney& money);
  void print();

  Session& session_;
  Choice scelta{*this,
                "scelta",
                "Schede:",
                Choice::Look::options,
                {"Solo &un sottoconto", "&Tutti i sottoconti", "Tutti i &clienti", "Tutti i &fornitori"}};
  Field sottoconto{*this, "sottoconto", "Sottoconto:", Mask::text(30)};
  DateRangeFields periodo{*this, session_, "text1", "text2"};
  Check conSaldo{*this, "conSaldo", "Solo se con sal&do"};
  Check lire{*this, "lire", "Importi in &Lire"};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stsched::Stsched(Session& session)
    : Form(session.desk(), "STSCHED", "Stampa scheda contabile"), session_(session) {
  scelta.select(0);
  scelta.onChange = [this] { sottoconto.setEnabled(isOfOne()); };
  accountField(session, sottoconto, {"s", "c", "f", "ag"}, SearchList::postable);
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stsched::layout() const {
  return column({group("Schede", {row({scelta}), row({sottoconto})}), group("Periodo", {periodo.layout()}),
                 group("Stampa", {row({conSaldo, lire, anteprima})}), space(), buttons({ok, annulla})});
}

// Nothing when there is none to print, which the user has been told.
std::optional<std::vector<std::string>> Stsched::voices() {
  if (!isOfOne()) return voicesOf(session_, static_cast<VoiceKind>(scelta.index() - 1));
  const bool known = !sottoconto.empty() && readVoice(session_, sottoconto.text(), 2620);
  if (known && session_.pc.B.tipo != "m" && session_.pc.B.tipo != "cc")
    return std::vector<std::string>{session_.pc.primaryKey()};
  desk().refuse("Non è stato inserito il sottoconto", sottoconto);
  return {};
}

// Nothing when the user stops it, or an archive fails, which has been reported.
std::optional<std::vector<AccountCard>> Stsched::cards(const DateRange& period, const BookMoney& money) {
  const auto codes = voices();
  if (!codes) return {};
  const Busy busy(desk());
  std::vector<AccountCard> cards;
  std::size_t done = 0;
  for (const std::string& code : *codes) {
    auto card = readCard(session_, code, period, money);
    if (!card || !desk().progress(++done, codes->size())) return {};
    if (!isOfOne() && card->isBlank()) continue;
    if (!conSaldo.on() || card->closing() != 0) cards.push_back(std::move(*card));
  }
  return cards;
}

void Stsched::print() {
  const auto period = periodo.read();
  if (!period) return;
  const BookMoney money = lire.on() ? BookMoney::lire(session_) : BookMoney();
  const auto made = cards(*period, money);
  if (!made) return;
  showReport(desk(), layOutCards(*made, {*period, money, session_.CompanyName}, printSetup(session_)),
             anteprima.on());
}

}  // namespace

std::unique_ptr<Form> makeStsched(Session& session) { return std::make_unique<Stsched>(session); }

}  // namespace tarvex
