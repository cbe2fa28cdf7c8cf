// Registrazione condizioni pagamento.
#include <algorithm>

#include "common/text.h"
#include "duedates/conditions.h"
#include "duedates/forms.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::int16_t kDays[] = {0, 10, 15, 20, 30};  // of cpag::giorno, in the order of the options

class Regpag : public Form {
 public:
  explicit Regpag(Session& session);
  Layout layout() const override;
  void load() override { list(); }

 private:
  void list();
  void show();
  void enable();
  rec::cpag condition() const;
  void add();
  void remove();

  Session& session_;
  std::vector<KeptCondition> kept_;  // as listed
  List elenco{*this, "elenco", "Condizioni registrate", {{"Descrizione", 42}}};
  Field descrizione{*this, "text1", "Descrizione:", Mask::text(40)};
  Check solo{*this, "solo", "Solo descrizione senza registra&zione nello scadenzario"};
  Choice tipo{*this, "tipo", "Tipo", Choice::Look::options, {"&Rimessa diretta", "Ricevuta &bancaria"}};
  Choice rate{*this, "rate", "Numero rate", Choice::Look::options, {"a &vista", "&1", "&2", "&3", "&4"}};
  Choice prima{*this,
               "prima",
               "Prima rata",
               Choice::Look::options,
               {"30 gg.", "60 gg.", "90 gg.", "120 gg.", "150 gg."}};
  Choice giorno{*this,
                "giorno",
                "Giorno scadenza",
                Choice::Look::options,
                {"data fattura", "al 10", "al 15", "al 20", "fine mese"}};
  Check agosto{*this, "agosto", "Agosto a &fine mese"};
  Check dicembre{*this, "dicembre", "Agosto e &Dicembre al 15 successivo"};
  Check salta{*this, "salta", "&Salta mese Agosto"};
  Button aggiungi{*this, "aggiungi", "&Aggiungi", Button::Role::main};
  Button elimina{*this, "elimina", "&Elimina"};
  Button annulla{*this, "annulla", "A&nnulla", Button::Role::cancel};
};

Regpag::Regpag(Session& session)
    : Form(session.desk(), "REGPAG", "Registrazione condizioni pagamento"), session_(session) {
  elenco.setHeight(6);
  for (Choice* choice : {&tipo, &rate, &prima, &giorno}) choice->select(0);
  elenco.onSelect = [this] { show(); };
  solo.onChange = rate.onChange = [this] { enable(); };
  agosto.onChange = [this] { dicembre.set(false); };
  dicembre.onChange = [this] { agosto.set(false); };
  aggiungi.onPress = [this] { add(); };
  elimina.onPress = [this] { remove(); };
  annulla.onPress = [this] { close(); };
  enable();
}

Layout Regpag::layout() const {
  return column({elenco,
                 group("Condizione", {row({descrizione}), row({solo}), row({tipo}), row({rate}), row({prima}),
                                      row({giorno}), row({agosto, dicembre, salta})}),
                 buttons({aggiungi, elimina, annulla})});
}

void Regpag::list() {
  kept_ = readConditions(session_);
  std::vector<std::vector<std::string>> rows;
  for (const KeptCondition& kept : kept_) rows.push_back({kept.condition.descrizione});
  elenco.setRows(std::move(rows));
}

void Regpag::show() {
  if (elenco.selected() < 0) return;
  const rec::cpag& kept = kept_[static_cast<std::size_t>(elenco.selected())].condition;
  descrizione.setText(kept.descrizione);
  solo.set(kept.tipo.empty());
  tipo.select(kept.tipo == "rb" ? 1 : 0);
  rate.select(std::clamp<int>(kept.numrate, 0, 4));
  prima.select(std::clamp<int>(kept.primarata - 1, 0, 4));
  const auto* day = std::ranges::find(kDays, kept.giorno);
  giorno.select(day == std::end(kDays) ? 0 : static_cast<int>(day - kDays));
  agosto.set(kept.agosto == 1);
  dicembre.set(kept.agosto == 2);
  salta.set(kept.saltaagosto == 1);
  enable();
}

// What falls due at sight, or not at all, knows neither months nor days.
void Regpag::enable() {
  const bool due = !solo.on(), later = due && rate.index() > 0;
  for (Choice* choice : {&tipo, &rate}) choice->setEnabled(due);
  for (Choice* choice : {&prima, &giorno}) choice->setEnabled(later);
  for (Check* check : {&agosto, &dicembre, &salta}) check->setEnabled(later);
}

rec::cpag Regpag::condition() const {
  rec::cpag made;
  made.descrizione = common::trim(descrizione.text());
  if (solo.on()) return made;
  made.tipo = tipo.index() == 1 ? "rb" : "rd";
  made.numrate = static_cast<std::int16_t>(std::max(0, rate.index()));
  if (made.numrate == 0) return made;
  made.primarata = static_cast<std::int16_t>(std::max(0, prima.index()) + 1);
  made.giorno = kDays[std::max(0, giorno.index())];
  made.agosto = static_cast<std::int16_t>(agosto.on() ? 1 : dicembre.on() ? 2 : 0);
  made.saltaagosto = salta.on() ? 1 : 0;
  return made;
}

void Regpag::add() {
  const rec::cpag made = condition();
  if (made.descrizione.empty()) return desk().refuse("Non è stata inserita la descrizione", descrizione);
  if (readCondition(session_, made.descrizione))
    return desk().refuse("Descrizione già registrata", descrizione);
  if (!addCondition(session_, made)) return;
  list();
  descrizione.clear();
  descrizione.focus();
}

void Regpag::remove() {
  if (elenco.selected() < 0) return desk().beep();
  removeCondition(session_, kept_[static_cast<std::size_t>(elenco.selected())].key);
  list();
}

}  // namespace

std::unique_ptr<Form> makeRegpag(Session& session) { return std::make_unique<Regpag>(session); }

}  // namespace tarvex
