// Tabella Iva: the VAT codes to look at.
#include "common/amount.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/vat_table.h"

namespace tarvex {
namespace {

using namespace ui;

class Vistiva : public Form {
 public:
  explicit Vistiva(Session& session);
  Layout layout() const override { return column({codici, buttons({chiudi})}); }
  void load() override;

 private:
  Session& session_;
  Grid codici{*this, "codici", kVatSlots};
  GridLabels codice{codici, "codice", "Codice", 5};
  GridLabels aliquota{codici, "aliquota", "Aliquota", 6};
  GridLabels indetraibile{codici, "indetraibile", "Indetraibile", 1};
  GridLabels descrizione{codici, "descrizione", "Descrizione", 60};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Vistiva::Vistiva(Session& session) : Form(session.desk(), "vistiva", "Tabella Iva"), session_(session) {
  codici.foldInto(2);
  chiudi.onPress = [this] { close(); };
}

void Vistiva::load() {
  const auto table = loadVatTable(session_);
  if (!table) return close();
  for (int row = 1; row <= kVatSlots; ++row) {
    const rec::civa& slot = (*table)[row - 1];
    if (slot.codice.empty()) continue;
    codice[row].setText(slot.codice);
    aliquota[row].setNumber(slot.aliquota);
    indetraibile[row].setText(slot.indetraibile == kNotDeductible ? "X" : "");
    descrizione[row].setText(slot.descrizione);
  }
}

}  // namespace

std::unique_ptr<Form> makeVistiva(Session& session) { return std::make_unique<Vistiva>(session); }

}  // namespace tarvex
