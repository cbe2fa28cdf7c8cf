// Duplicazione azienda: the open company and year once more, under a new name.
#include "common/text.h"
#include "session/company_files.h"
#include "session/forms.h"
#include "session/new_company.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Duplica : public Form {
 public:
  explicit Duplica(Session& session);
  Layout layout() const override { return column({row({text1}), buttons({ok, annulla})}); }

 private:
  void confirm();
  NewCompany twin(const std::string& name) const;

  Session& session_;
  Field text1{*this, "text1", "&Descrizione nuova azienda", Mask::text(40)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Duplica::Duplica(Session& session)
    : Form(session.desk(), "DUPLICA", "Duplicazione azienda"), session_(session) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Duplica::confirm() {
  const std::string name = common::trim(text1.text());
  if (name.empty()) return desk().refuse("Non è stata inserita la descrizione", text1);
  if (!desk().confirm("Confermare l'operazione ?")) return;
  std::string code;
  const Slot slot = takeSlot(session_, twin(name), code);
  if (slot != Slot::taken)
    return refuseSlot(session_, slot, "Archivi già creati con lo stessa descrizione", text1);
  const Busy busy(desk());
  copyCompany(session_, code);
  session_.log("Copiata nuova azienda " + name + " " + session_.WorkYear);
  close();
}

// A password is no part of what is copied: the new company has none.
NewCompany Duplica::twin(const std::string& name) const {
  session_.dataz.search(0, session_.CompanyCode);
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 100);
  const rec::dataz& own = session_.dataz.B;
  return {name, own.indirizzo, own.citta, own.partitaiva, session_.WorkYear};
}

}  // namespace

std::unique_ptr<ui::Form> makeDuplica(Session& session) { return std::make_unique<Duplica>(session); }

}  // namespace tarvex
