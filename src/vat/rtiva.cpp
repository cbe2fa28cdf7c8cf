// Registrazione tabella Iva.
#include "common/text.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/vat_table.h"

namespace tarvex {
namespace {

using namespace ui;

class Rtiva : public Form {
 public:
  explicit Rtiva(Session& session);
  Layout layout() const override { return column({codici, buttons({registra, annulla})}); }
  void load() override;

 private:
  VatTable typed() const;
  void save();

  Session& session_;
  VatTable before_;  // as it was read
  Grid codici{*this, "codici", kVatSlots};
  GridColumn codice{codici, "codice", "Codice", Mask::text(5)};
  GridColumn aliquota{codici, "aliquota", "Aliquota", Mask::amount(2, 6)};
  GridChecks indetraibile{codici, "indetraibile", "Indetraibile"};
  GridColumn descrizione{codici, "descrizione", "Descrizione", Mask::text(60)};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Rtiva::Rtiva(Session& session)
    : Form(session.desk(), "rtiva", "Registrazione tabella Iva"), session_(session) {
  codici.foldInto(2);
  registra.onPress = [this] { save(); };
  annulla.onPress = [this] { close(); };
}

void Rtiva::load() {
  const auto table = loadVatTable(session_);
  if (!table) return close();  // registering what could not be read would empty the slots
  before_ = *table;
  for (int row = 1; row <= kVatSlots; ++row) {
    const rec::civa& slot = (*table)[row - 1];
    if (slot.codice.empty()) continue;
    codice[row].setText(slot.codice);
    aliquota[row].setNumber(slot.aliquota);
    indetraibile[row].set(slot.indetraibile == kNotDeductible);
    descrizione[row].setText(slot.descrizione);
  }
}

VatTable Rtiva::typed() const {
  VatTable table;
  for (int row = 1; row <= kVatSlots; ++row) {
    rec::civa& slot = table[row - 1];
    slot.codice = common::trim(codice[row].text());
    slot.aliquota = aliquota[row].number();
    slot.indetraibile = indetraibile[row].on() ? kNotDeductible : std::int16_t{0};
    slot.descrizione = descrizione[row].text();
  }
  return table;
}

void Rtiva::save() {
  const VatTable table = typed();
  if (const auto twice = firstDuplicate(table))
    return desk().refuse("Il codice " + twice->code + " è stato inserito " + std::to_string(twice->count) +
                         " volte");
  if (!saveVatTable(session_, table, before_)) return;
  before_ = table;
  codice[1].focus();
}

}  // namespace

std::unique_ptr<Form> makeRtiva(Session& session) { return std::make_unique<Rtiva>(session); }

}  // namespace tarvex
