// Registrazione credito Iva anno precedente.
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

using namespace ui;

class Regcred : public Form {
 public:
  explicit Regcred(Session& session);
  Layout layout() const override { return column({row({importo}), space(), buttons({registra, annulla})}); }

 private:
  void save();

  Session& session_;
  Field importo{*this, "importo", "Importo:", Mask::amount()};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Regcred::Regcred(Session& session)
    : Form(session.desk(), "REGCRED", "Registrazione credito Iva anno precedente"), session_(session) {
  registra.onPress = [this] { save(); };
  annulla.onPress = [this] { close(); };
}

void Regcred::save() {
  const double credit = importo.number();
  if (changeVatBalances(session_, [&](rec::si& balances) { balances.creditoprec = credit; })) close();
}

}  // namespace

std::unique_ptr<Form> makeRegcred(Session& session) { return std::make_unique<Regcred>(session); }

}  // namespace tarvex
