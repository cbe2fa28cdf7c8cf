// Variazione saldo liquidazione iva.
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/period_fields.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

using namespace ui;

class Varsi : public Form {
 public:
  explicit Varsi(Session& session);
  Layout layout() const override;
  void load() override { show(); }

 private:
  void show();
  void save();

  Session& session_;
  PeriodFields periodo{*this, session_};
  Label saldo{*this, "saldo", "Saldo:", 18};
  Field nuovo{*this, "nuovo", "Nuovo saldo:", Mask::amount()};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Varsi::Varsi(Session& session)
    : Form(session.desk(), "varsi", "Variazione saldo liquidazione iva"), session_(session) {
  nuovo.hint = "Positivo a credito, negativo a debito";
  periodo.onChange = [this] { show(); };
  registra.onPress = [this] { save(); };
  annulla.onPress = [this] { close(); };
}

Layout Varsi::layout() const {
  return column({periodo.layout(), row({saldo}), row({nuovo}), space(), buttons({registra, annulla})});
}

void Varsi::show() {
  auto balances = readVatBalances(session_);
  if (!balances) return close();
  saldo.setNumber(saldoOf(*balances, periodo.period().number));
  nuovo.clear();
}

// A balance of 0 is typed: an empty field would wipe out, by a second Enter, what was just registered.
void Varsi::save() {
  if (nuovo.empty()) return desk().beep(), nuovo.focus();
  const double value = nuovo.number();
  const int number = periodo.period().number;
  if (changeVatBalances(session_, [&](rec::si& balances) { saldoOf(balances, number) = value; })) show();
}

}  // namespace

std::unique_ptr<Form> makeVarsi(Session& session) { return std::make_unique<Varsi>(session); }

}  // namespace tarvex
