// Stampa Prima Nota, and Stampa controllo Prima Nota.
#include <algorithm>

#include "ledger/books/date_range.h"
#include "ledger/books/forms.h"
#include "ledger/books/journal_list.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Stmc : public Form {
 public:
  explicit Stmc(Session& session);
  Layout layout() const override;

 private:
  const ListedKind& kind() const { return kListedKinds[std::max(0, tipo.index())]; }
  void print();

  Session& session_;
  DateRangeFields periodo{*this, session_, "text1", "text2"};
  Choice tipo{*this, "tipo", "Movimenti:", Choice::Look::combo};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stmc::Stmc(Session& session) : Form(session.desk(), "STMC", "Stampa Prima Nota"), session_(session) {
  for (const ListedKind& kind : kListedKinds) tipo.addItem(kind.name);
  tipo.select(0);
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stmc::layout() const {
  return column({group("Periodo", {periodo.layout(), row({tipo})}), group("Stampa", {row({anteprima})}),
                 space(), buttons({ok, annulla})});
}

void Stmc::print() {
  const auto period = periodo.read();
  if (!period) return;
  if (const auto report = layOutEntries(session_, *period, kind(), printSetup(session_)))
    showReport(desk(), report, anteprima.on());
}

class Stmc1 : public Form {
 public:
  explicit Stmc1(Session& session)
      : Form(session.desk(), "STMC1", "Stampa controllo Prima Nota"), session_(session) {
    anno.setText(session.WorkYear);
    anteprima.set(true);
    ok.onPress = [this] { print(); };
    annulla.onPress = [this] { close(); };
  }
  Layout layout() const override {
    return column({group("Stampa", {row({anno}), row({anteprima})}), space(), buttons({ok, annulla})});
  }

 private:
  void print() {
    if (const auto report = layOutControl(session_, printSetup(session_)))
      showReport(desk(), report, anteprima.on());
  }

  Session& session_;
  Label anno{*this, "anno", "Anno:", 6};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

}  // namespace

std::unique_ptr<Form> makeStmc(Session& session) { return std::make_unique<Stmc>(session); }
std::unique_ptr<Form> makeStmc1(Session& session) { return std::make_unique<Stmc1>(session); }

}  // namespace tarvex
