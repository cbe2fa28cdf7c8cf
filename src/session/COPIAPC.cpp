// Copia archivi: master data of the open company for a year of another one.
#include "session/company_choice.h"
#include "session/company_copy.h"
#include "session/forms.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Copiapc : public Form {
 public:
  explicit Copiapc(Session& session);
  Layout layout() const override;
  void load() override { choice.load(); }

 private:
  void confirm();

  Session& session_;
  CompanyChoice choice{*this, session_, "All'a&zienda", "A&nno di lavoro"};
  Check clienti{*this, "clienti", "&Clienti"};
  Check fornitori{*this, "fornitori", "&Fornitori"};
  Check agenti{*this, "agenti", "A&genti"};
  Check piano{*this, "piano", "&Piano dei conti"};
  Check magazzino{*this, "magazzino", "&Magazzino"};
  Check distinta{*this, "distinta", "&Distinta base"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Copiapc::Copiapc(Session& session) : Form(session.desk(), "COPIAPC", "Copia archivi"), session_(session) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

Layout Copiapc::layout() const {
  return column({row({choice.company}), row({choice.year}),
                 group("Archivi da copiare", {row({clienti}), row({fornitori}), row({agenti}), row({piano}),
                                              row({magazzino}), row({distinta})}),
                 buttons({ok, annulla})});
}

void Copiapc::confirm() {
  const std::optional<std::string> code = choice.code();
  const CopyWish wish{clienti.on(), fornitori.on(), agenti.on(), piano.on(), magazzino.on(), distinta.on()};
  CopyResult result = CopyResult::notThere;
  if (code) {
    const Busy busy(desk());
    result = copyMasterData(session_, *code, choice.year.text(), wish);
  }
  if (result == CopyResult::notThere) return desk().refuse("Archivi non presenti", choice.company);
  if (result == CopyResult::refused) return desk().refuse("Operazione non effettuabile", choice.company);
  if (result == CopyResult::done) close();
}

}  // namespace

std::unique_ptr<ui::Form> makeCopiapc(Session& session) { return std::make_unique<Copiapc>(session); }

}  // namespace tarvex
