// Registrazione schema causale automatizzata.
#include "chart/account_field.h"
#include "ledger/forms.h"
#include "session/schemes.h"
#include "ui/form.h"

namespace tarvex {
namespace {

class Regxx : public ui::Form {
 public:
  explicit Regxx(Session& session);
  ui::Layout layout() const override;
  void load() override { listSchemes(); }

 private:
  void listSchemes();
  void show(const rec::ax& scheme);
  void showTyped();
  bool hasRows() const;
  void registerScheme();
  void deleteScheme();
  void addReady();
  void clear();
  rec::ax scheme() const;

  Session& session_;
  ui::Choice schemi{*this, "Combo1", "Schemi registrati:", ui::Choice::Look::combo};
  ui::Field causale{*this, "text1", "Causale:", ui::Mask::text(30)};
  ui::Grid righe{*this, "righe", rec::ax::kRows};
  ui::GridColumn conto{righe, "conto", "Conto", ui::Mask::text(30)};
  ui::GridColumn agg{righe, "agg", "Descrizione aggiunta", ui::Mask::text(30)};
  ui::GridChecks dare{righe, "dare", "Dare"};
  ui::GridChecks avere{righe, "avere", "Avere"};
  ui::Button registra{*this, "registra", "&Registra", ui::Button::Role::main};
  ui::Button elimina{*this, "elimina", "&Elimina"};
  ui::Button pronti{*this, "pronti", "Schemi &pronti"};
  ui::Button annulla{*this, "annulla", "&Annulla", ui::Button::Role::cancel};
};

Regxx::Regxx(Session& session)
    : Form(session.desk(), "regxx", "Registrazione schema causale automatizzata"), session_(session) {
  schemi.onChange = [this] {
    if (const auto chosen = readScheme(session_, schemi.text())) show(*chosen);
  };
  causale.onLeave = [this] { return showTyped(), ui::Leave::go; };
  conto.onEach([this](ui::Field& cell, int) {
    accountField(session_, cell, {"s", "c", "f", "ag"}, SearchList::postable);
  });
  dare.onEach([this](ui::Check& box, int row) {
    box.onChange = [this, row] {
      if (dare[row].on()) avere[row].set(false);
    };
  });
  avere.onEach([this](ui::Check& box, int row) {
    box.onChange = [this, row] {
      if (avere[row].on()) dare[row].set(false);
    };
  });
  registra.onPress = [this] { registerScheme(); };
  elimina.onPress = [this] { deleteScheme(); };
  pronti.onPress = [this] { addReady(); };
  annulla.onPress = [this] { close(); };
}

ui::Layout Regxx::layout() const {
  return ui::column({ui::row({schemi, causale}), ui::group("Righe", {righe}),
                     ui::buttons({registra, elimina, pronti, annulla})});
}

void Regxx::listSchemes() { schemi.setItems(schemeNames(session_)); }

void Regxx::show(const rec::ax& scheme) {
  causale.setText(scheme.nome);
  for (int row = 1; row <= righe.rows(); ++row) {
    const rec::AxRow& one = scheme.righe[static_cast<std::size_t>(row - 1)];
    conto[row].setText(one.conto);
    agg[row].setText(one.agg);
    dare[row].set(one.segno == "d");
    avere[row].set(one.segno == "a");
  }
}

// A name typed by hand shows its scheme, too, unless rows have been begun that it would wipe out.
void Regxx::showTyped() {
  if (causale.empty() || hasRows()) return;
  if (const auto typed = readScheme(session_, causale.text())) show(*typed);
}

bool Regxx::hasRows() const {
  for (int row = 1; row <= righe.rows(); ++row)
    if (!conto[row].empty()) return true;
  return false;
}

void Regxx::registerScheme() {
  if (causale.empty()) return desk().refuse("NON E' STATA INSERITA LA CAUSALE", causale);
  for (int row = 1; row <= righe.rows(); ++row)
    if (!conto[row].empty() && !dare[row].on() && !avere[row].on())
      return desk().refuse("NON E' STATA INSERITA LA SCELTA DARE/AVERE", dare[row]);
  if (!writeScheme(session_, scheme())) return;
  clear();
}

void Regxx::deleteScheme() {
  if (causale.empty()) return desk().refuse("NON E' STATA INSERITA LA CAUSALE", causale);
  removeScheme(session_, causale.text());
  clear();
}

void Regxx::addReady() {
  addReadySchemes(session_);
  listSchemes();
  schemi.focus();
}

void Regxx::clear() {
  show({});
  listSchemes();
  causale.focus();
}

rec::ax Regxx::scheme() const {
  rec::ax scheme;
  scheme.nome = causale.text();
  for (int row = 1; row <= righe.rows(); ++row)
    if (!conto[row].empty())
      scheme.righe[static_cast<std::size_t>(row - 1)] = {conto[row].text(), agg[row].text(),
                                                         dare[row].on() ? "d" : "a"};
  return scheme;
}

}  // namespace

std::unique_ptr<ui::Form> makeRegxx(Session& session) { return std::make_unique<Regxx>(session); }

}  // namespace tarvex
