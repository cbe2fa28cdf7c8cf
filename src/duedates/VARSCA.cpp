// Variazione scadenzario, and Scadenzario, the same list without changes.
#include "common/amount.h"
#include "common/date.h"
#include "duedates/due_list.h"
#include "duedates/forms.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Varsca : public Form {
 public:
  Varsca(Session& session, bool changes);
  Layout layout() const override;
  void load() override { list(); }

 private:
  void list();
  void show();
  const ListedDue* selected() const;
  void change();
  void remove();

  Session& session_;
  bool changes_;
  std::vector<ListedDue> dues_;  // as listed
  Choice tipo{*this, "tipo", "Scadenzario", Choice::Look::options};
  Field dalla{*this, "text1", "Dalla scadenza:", Mask::pattern("__/__/____")};
  Button mostra{*this, "mostra", "Visuali&zza", Button::Role::main};
  List scadenze{*this,
                "scadenze",
                "Scadenze",
                {{"N. fatt.", 10},
                 {"Data fatt.", 12},
                 {"Cliente/Fornitore", 32},
                 {"Importo", 15, true},
                 {"Scadenza", 12},
                 {"Tipo", 5}}};
  Label totale{*this, "totale", "Totale:", 16};
  Field importo{*this, "text2", "Importo:", Mask::amount()};
  Field scadenza{*this, "text3", "Scadenza:", Mask::pattern("__/__/____")};
  Button varia{*this, "varia", "&Varia"};
  Button elimina{*this, "elimina", "&Elimina"};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Varsca::Varsca(Session& session, bool changes)
    : Form(session.desk(), changes ? "VARSCA" : "VISSCA", changes ? "Variazione scadenzario" : "Scadenzario"),
      session_(session),
      changes_(changes) {
  offerLedgers(tipo);
  scadenze.setHeight(12);
  for (Control* control : {static_cast<Control*>(&importo), static_cast<Control*>(&scadenza),
                           static_cast<Control*>(&varia), static_cast<Control*>(&elimina)})
    control->setVisible(changes);
  tipo.onChange = mostra.onPress = [this] { list(); };
  scadenze.onSelect = [this] { show(); };
  varia.onPress = [this] { change(); };
  elimina.onPress = [this] { remove(); };
  annulla.onPress = [this] { close(); };
}

Layout Varsca::layout() const {
  return column({row({tipo}), row({dalla, mostra}), scadenze, row({totale, importo, scadenza}),
                 buttons({varia, elimina, annulla})});
}

void Varsca::list() {
  dues_.clear();
  scadenze.setRows(std::vector<std::vector<std::string>>());
  totale.setText({});
  importo.clear();
  scadenza.clear();
  std::string first;
  if (!dalla.empty()) {
    first = dalla.text();
    if (!ValidateDate(session_, first)) return dalla.focus();
    first = common::DateToKey(first);
  }
  dues_ = listDues(session_, chosenLedger(tipo).ledger, first).value_or(std::vector<ListedDue>());
  std::vector<std::vector<std::string>> rows;
  double sum = 0;
  for (const ListedDue& listed : dues_) {
    const DueDate& due = listed.due;
    rows.push_back({due.numero, shownDue(due.datafatt), listed.name, common::toText(due.importo),
                    shownDue(due.scadenza), due.tipo});
    sum = common::roundBalance(sum + due.importo);
  }
  scadenze.setRows(std::move(rows));
  totale.setNumber(sum);
}

const ListedDue* Varsca::selected() const {
  return scadenze.selected() < 0 ? nullptr : &dues_[static_cast<std::size_t>(scadenze.selected())];
}

void Varsca::show() {
  const ListedDue* chosen = selected();
  if (!chosen || !changes_) return;
  importo.setNumber(chosen->due.importo);
  scadenza.setText(shownDue(chosen->due.scadenza));
}

void Varsca::change() {
  const ListedDue* chosen = selected();
  if (!chosen) return desk().beep();
  if (importo.number() == 0) return desk().refuse("Non è stato inserito l'importo", importo);
  if (scadenza.empty()) return desk().refuse("Non è stata inserita la data", scadenza);
  std::string date = scadenza.text();
  if (!ValidateDate(session_, date)) return scadenza.focus();
  const bool changed = changeDueDate(session_, chosen->due.ledger, chosen->due.key, [&](DueDate& due) {
    due.importo = importo.number();
    due.scadenza = common::DateToKey(date);
  });
  if (!changed) desk().beep();  // another station has removed it
  list();
}

void Varsca::remove() {
  const ListedDue* chosen = selected();
  if (!chosen) return desk().beep();
  removeDueDate(session_, chosen->due.ledger, chosen->due.key);
  list();
}

}  // namespace

std::unique_ptr<Form> makeVarsca(Session& session) { return std::make_unique<Varsca>(session, true); }
std::unique_ptr<Form> makeVissca(Session& session) { return std::make_unique<Varsca>(session, false); }

}  // namespace tarvex
