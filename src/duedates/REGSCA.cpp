// Registrazione scadenzario: a due date entered by hand.
#include "chart/account_field.h"
#include "common/date.h"
#include "common/text.h"
#include "duedates/due_ledgers.h"
#include "duedates/forms.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Regsca : public Form {
 public:
  explicit Regsca(Session& session);
  Layout layout() const override;

 private:
  bool ofSuppliers() const { return soggetti.index() == 1; }
  bool byReceipt() const { return modo.index() == 1; }
  long long numberTyped() const { return static_cast<long long>(common::numberValue(numero.text())); }
  void askFor();
  Leave leaveDate(Field& field);
  bool mayRegister();
  bool subjectRight();
  void registerDueDate();

  Session& session_;
  std::string subject_;  // code, from the checks
  Choice soggetti{*this, "soggetti", "Scadenzario", Choice::Look::options, {"&Clienti", "&Fornitori"}};
  Choice modo{*this, "modo", "Pagamento", Choice::Look::options, {"Ri&messe dirette", "Ricevute &bancarie"}};
  Field soggetto{*this, "text1", "Cliente:", Mask::text(30)};
  Field numero{*this, "text2", "Numero fatt.:", Mask::text(10)};
  Field data{*this, "text3", "Data fattura:", Mask::pattern("__/__/____")};
  Field importo{*this, "text4", "Importo:", Mask::amount()};
  Field scadenza{*this, "text5", "Scadenza:", Mask::pattern("__/__/____")};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Regsca::Regsca(Session& session)
    : Form(session.desk(), "REGSCA", "Registrazione scadenzario"), session_(session) {
  soggetti.select(0);
  modo.select(0);
  soggetti.onChange = [this] { askFor(); };
  askFor();
  data.onLeave = [this] { return leaveDate(data); };
  scadenza.onLeave = [this] { return leaveDate(scadenza); };
  registra.onPress = [this] { registerDueDate(); };
  annulla.onPress = [this] { close(); };
}

Layout Regsca::layout() const {
  return column({group("Scadenzario", {row({soggetti}), row({modo})}),
                 group("Scadenza", {row({soggetto}), row({numero, data}), row({importo, scadenza})}), space(),
                 buttons({registra, annulla})});
}

void Regsca::askFor() {
  soggetto.setCaption(ofSuppliers() ? "Fornitore:" : "Cliente:");
  if (ofSuppliers())
    accountField(session_, soggetto, {"f", "ag"}, SearchList::suppliers);
  else
    accountField(session_, soggetto, {"c"}, SearchList::customers);
}

Leave Regsca::leaveDate(Field& field) {
  if (field.empty()) return Leave::go;
  std::string date = field.text();
  return ValidateDate(session_, date) ? Leave::go : Leave::stay;
}

bool Regsca::mayRegister() {
  const auto refuse = [this](Field& field, const char* text) { return desk().refuse(text, field), false; };
  if (soggetto.empty()) return refuse(soggetto, "NON E' STATO INSERITO IL CLIENTE");
  const bool numbered = ofSuppliers() ? !common::trim(numero.text()).empty() : numberTyped() > 0;
  if (!numbered) return refuse(numero, "NON E' STATO INSERITO IL NUMERO DELLA FATTURA");
  if (data.empty()) return refuse(data, "NON E' STATA INSERITA LA DATA DELLA FATTURA");
  if (importo.number() == 0) return refuse(importo, "NON E' STATO INSERITO L'IMPORTO");
  if (scadenza.empty()) return refuse(scadenza, "NON E' STATA INSERITA LA DATA DELLA SCADENZA");
  return subjectRight();
}

bool Regsca::subjectRight() {
  const bool known = readVoice(session_, common::trim(soggetto.text()), 3550);
  const std::string kind = known ? session_.pc.B.tipo : std::string();
  if (ofSuppliers() ? kind == "f" || kind == "ag" : kind == "c") {
    subject_ = session_.pc.primaryKey();
    return true;
  }
  desk().beep();
  soggetto.focus();
  return false;
}

void Regsca::registerDueDate() {
  if (!mayRegister()) return;
  DueDate due;
  due.ledger = ofSuppliers() ? DueLedger::sf : byReceipt() ? DueLedger::st : DueLedger::sd;
  due.numero = ofSuppliers() ? common::trim(numero.text()) : common::zeroFill(numberTyped(), 5);
  due.datafatt = common::DateToKey(data.text());
  due.conto = subject_;
  due.importo = importo.number();
  due.scadenza = common::DateToKey(scadenza.text());
  if (ofSuppliers()) due.tipo = byReceipt() ? "rb" : "rd";
  if (addDueDate(session_, due).empty()) return;
  for (Field* field : {&soggetto, &numero, &data, &importo, &scadenza}) field->clear();
  soggetto.focus();
}

}  // namespace

std::unique_ptr<Form> makeRegsca(Session& session) { return std::make_unique<Regsca>(session); }

}  // namespace tarvex
