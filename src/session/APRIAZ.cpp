// Apertura archivi nuova azienda.
#include "common/text.h"
#include "session/company.h"
#include "session/forms.h"
#include "session/new_company.h"
#include "session/schemes.h"
#include "session/starter_chart.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Apriaz : public Form {
 public:
  explicit Apriaz(Session& session);
  Layout layout() const override;

 private:
  void confirm();
  NewCompany typed() const;
  void refuseYear();

  Session& session_;
  Field text1{*this, "text1", "&Ragione sociale:", Mask::text(40)};
  Field text2{*this, "text2", "&Indirizzo:", Mask::text(40)};
  Field text3{*this, "text3", "&Città:", Mask::text(40)};
  Field text4{*this, "text4", "&Partita iva:", Mask::text(16)};
  Field text5{*this, "text5", "Anno conta&bile:", Mask::digits(4)};
  Check pianobase{*this, "pianobase", "Con il piano dei conti di &esempio"};
  Check causalibase{*this, "causalibase", "Con le causali automatizzate di e&sempio"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Apriaz::Apriaz(Session& session)
    : Form(session.desk(), "APRIAZ", "Apertura archivi nuova azienda"), session_(session) {
  pianobase.setEnabled(hasStarterChart(session));
  causalibase.setEnabled(false);  // they name voices of that chart
  pianobase.onChange = [this] {
    causalibase.setEnabled(pianobase.on());
    causalibase.set(causalibase.on() && pianobase.on());
  };
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

Layout Apriaz::layout() const {
  return column({row({text1}), row({text2}), row({text3}), row({text4}), row({text5}),
                 group("Contenuto iniziale", {row({pianobase}), row({causalibase})}),
                 buttons({ok, annulla})});
}

NewCompany Apriaz::typed() const {
  return {common::trim(text1.text()), text2.text(), text3.text(), text4.text(), text5.text()};
}

void Apriaz::confirm() {
  if (text5.number() < kFirstYear || text5.number() > kLastYear) return refuseYear();
  const NewCompany company = typed();
  if (company.name.empty()) return desk().refuse("La ragione sociale non è stata inserita", text1);
  std::string code;
  const Slot slot = takeSlot(session_, company, code);
  if (slot != Slot::taken) return refuseSlot(session_, slot, "Archivi già creati", text1);
  const Busy busy(desk());
  makeCompany(session_, company, code);
  if (pianobase.on()) addStarterChart(session_);
  if (causalibase.on()) addReadySchemes(session_);
  close();
}

void Apriaz::refuseYear() {
  desk().beep();
  text5.focus();
}

}  // namespace

std::unique_ptr<ui::Form> makeApriaz(Session& session) { return std::make_unique<Apriaz>(session); }

}  // namespace tarvex
