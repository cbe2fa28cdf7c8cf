// Cancellazione archivi: removes a year of a company, with its last year the company.
#include "session/cancell1.h"
#include "session/company_choice.h"
#include "session/company_files.h"
#include "session/forms.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Cancella : public Form {
 public:
  explicit Cancella(Session& session);
  Layout layout() const override {
    return column({row({choice.company}), row({choice.year}), buttons({ok, annulla})});
  }
  void load() override { choice.load(); }

 private:
  void confirm();

  Session& session_;
  CompanyChoice choice{*this, session_, "A&zienda", "A&nno di lavoro"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Cancella::Cancella(Session& session)
    : Form(session.desk(), "cancella", "Cancellazione archivi"), session_(session) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Cancella::confirm() {
  if (choice.company.text().empty())
    return desk().refuse("Non è stata selezionata l'azienda", choice.company);
  const std::optional<std::string> code = choice.code();
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 102);
  if (!code) return choice.load();
  // A company without any year is what a creation leaves that was cut short: its slot can be freed.
  const bool yearless = choice.year.items().empty() && !hasYear(session_, *code);
  if (choice.year.text().empty() && !yearless)
    return desk().refuse("Non è stato selezionato l'anno", choice.year);
  if (!confirmRemoval(session_)) return;
  bool removed = true;
  {
    const Busy busy(desk());
    if (yearless)
      removeCompany(session_, *code);
    else
      removed = removeYear(session_, *code, choice.year.text());
  }
  if (!removed) desk().warn("Gli archivi sono in uso su un'altra postazione");
  close();
}

}  // namespace

std::unique_ptr<ui::Form> makeCancella(Session& session) { return std::make_unique<Cancella>(session); }

}  // namespace tarvex
