// Variazione dati aziendali: name, address, city and VAT number of the open company.
#include "common/text.h"
#include "session/company.h"
#include "session/forms.h"
#include "session/new_company.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Regdati : public Form {
 public:
  explicit Regdati(Session& session);
  Layout layout() const override {
    return column({row({text1}), row({text2}), row({text3}), row({text4}), buttons({ok, annulla})});
  }
  void load() override;

 private:
  void confirm();

  Session& session_;
  Field text1{*this, "text1", "&Ragione sociale:", Mask::text(40)};
  Field text2{*this, "text2", "&Indirizzo:", Mask::text(40)};
  Field text3{*this, "text3", "&Città:", Mask::text(40)};
  Field text4{*this, "text4", "&Partita iva:", Mask::text(16)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Regdati::Regdati(Session& session)
    : Form(session.desk(), "REGDATI", "Variazione dati aziendali"), session_(session) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

// A record that cannot be read must not be written over with empty fields.
void Regdati::load() {
  session_.dataz.search(0, session_.CompanyCode);
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 101);
  if (session_.store.LastArchiveResult != store::kOk) return close();
  const rec::dataz& company = session_.dataz.B;
  text1.setText(company.ragsoc);
  text2.setText(company.indirizzo);
  text3.setText(company.citta);
  text4.setText(company.partitaiva);
}

void Regdati::confirm() {
  const std::string name = common::trim(text1.text());
  if (name.empty()) return desk().refuse("La ragione sociale non è stata inserita", text1);
  const NewCompany company{name, text2.text(), text3.text(), text4.text(), session_.WorkYear};
  const Slot slot = changeSlot(session_, company, session_.CompanyCode);
  if (slot != Slot::taken) return refuseSlot(session_, slot, "Ragione sociale già registrata", text1);
  enterCompany(session_, session_.CompanyCode, name, session_.WorkYear, session_.CurrentWarehouse);
  close();
}

}  // namespace

std::unique_ptr<ui::Form> makeRegdati(Session& session) { return std::make_unique<Regdati>(session); }

}  // namespace tarvex
