// Registrazione manuale nel registro iva: a VAT row without journal lines. From then on that register and the
// journal differ, which is what the screen is for.
#include <algorithm>

#include "chart/account_field.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/forms.h"
#include "ledger/posting.h"
#include "ledger/vat_rows.h"
#include "session/checks.h"
#include "store/group.h"
#include "ui/form.h"
#include "vat/vat_table.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::array<VatSide, 3> kSides{VatSide::purchases, VatSide::sales, VatSide::receipts};

class Rmiva : public Form {
 public:
  explicit Rmiva(Session& session);
  Layout layout() const override;

 private:
  VatSide side() const { return kSides[static_cast<std::size_t>(std::max(0, tipo.index()))]; }
  Leave leaveCode();
  void registerRow();
  bool mayRegister();
  bool write();
  template <class R>
  R vatRow() const;
  void writeSales();
  void writePurchase();
  void writeReceipt();
  void clear();

  Session& session_;
  std::string subject_;  // code, from the checks
  std::string taxed_;    // what the tax was computed on last: one that the user has corrected stays
  Choice tipo{*this, "tipo", "Tipo:", Choice::Look::options, {"Ac&quisti", "&Vendite", "&Corrispettivi"}};
  Field registro{*this, "registro", "Registro:", Mask::oneOf("123456789")};
  Field soggetto{*this, "soggetto", "Cliente/Fornitore:", Mask::text(30)};
  Field datareg{*this, "datareg", "Data registrazione:", Mask::pattern(session_.YearDateMask)};
  Field datadoc{*this, "datadoc", "Data documento:", Mask::pattern(session_.YearDateMask)};
  Field numero{*this, "numero", "Numero documento:", Mask::digits(6)};
  Field protocollo{*this, "protocollo", "Numero protocollo:", Mask::digits(5)};
  Field imponibile{*this, "imponibile", "Imponibile:", Mask::amount()};
  Field codiva{*this, "codiva", "Codice iva:", Mask::text(5)};
  Field imposta{*this, "imposta", "Imposta:", Mask::amount()};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Rmiva::Rmiva(Session& session)
    : Form(session.desk(), "RMIVA", "Registrazione manuale nel registro iva"), session_(session) {
  tipo.select(0);
  tipo.onChange = [this] {
    if (tipo.index() < 0) tipo.select(0);
    protocollo.setEnabled(side() == VatSide::purchases);
  };
  registro.setText("1");
  registro.onLeave = [this] { return registro.empty() ? (registro.setText("1"), Leave::go) : Leave::go; };
  accountField(session, soggetto, {"c", "f", "ag"}, SearchList::customersAndSuppliers);
  datareg.onLeave = [this] {
    std::string date = datareg.text();
    return datareg.empty() || validateRegistrationDate(session_, date) ? Leave::go : Leave::stay;
  };
  datadoc.onLeave = [this] {
    std::string date = datadoc.text();
    return datadoc.empty() || ValidateDate(session_, date) ? Leave::go : Leave::stay;
  };
  codiva.onLeave = [this] { return leaveCode(); };
  registra.onPress = [this] { registerRow(); };
  annulla.onPress = [this] { close(); };
}

Layout Rmiva::layout() const {
  return column({group("Registro iva", {row({tipo, registro})}),
                 group("Documento", {row({soggetto}), row({datareg, datadoc}), row({numero, protocollo})}),
                 group("Importi", {row({imponibile, codiva, imposta})}), space(),
                 buttons({registra, annulla})});
}

Leave Rmiva::leaveCode() {
  if (codiva.empty()) return Leave::go;
  const auto code = readVatCode(session_, codiva.text());
  if (!code) {
    desk().beep();
    return Leave::stay;
  }
  const std::string taxed = imponibile.text() + " " + codiva.text();
  if (imposta.empty() || taxed != taxed_)
    imposta.setNumber(common::vatOf(imponibile.number(), code->aliquota));
  taxed_ = taxed;
  return Leave::go;
}

bool Rmiva::mayRegister() {
  const auto refuse = [this](Field& field, const char* text) { return desk().refuse(text, field), false; };
  const bool known = !soggetto.empty() && readVoice(session_, soggetto.text(), 2800);
  const std::string kind = known ? session_.pc.B.tipo : std::string();
  if (kind != "c" && kind != "f" && kind != "ag")
    return refuse(soggetto, "Non è stato inserito il cliente/fornitore");
  subject_ = session_.pc.primaryKey();
  if (datareg.empty()) return refuse(datareg, "Non è stata inserita la data");
  if (datadoc.empty()) return refuse(datadoc, "Non è stata inserita la data");
  if (numero.empty()) return refuse(numero, "Non è stato inserito il documento");
  if (side() == VatSide::purchases && protocollo.empty())
    return refuse(protocollo, "Non è stato inserito il protocollo");
  if (codiva.empty()) return refuse(codiva, "Non è stato inserito il codice iva");
  return true;
}

void Rmiva::registerRow() {
  if (mayRegister() && write()) clear();
}

// The counters of the VAT rows are guarded by the lock of posting.
bool Rmiva::write() {
  store::Group group(session_.store, session_.groupLog(), session_.pr.code, 2801);
  session_.pr.spinLock("mc");
  switch (side()) {
    case VatSide::sales:
      writeSales();
      break;
    case VatSide::purchases:
      writePurchase();
      break;
    case VatSide::receipts:
      writeReceipt();
      break;
  }
  session_.pr.unlock("mc");
  return group.commit();
}

template <class R>
R Rmiva::vatRow() const {
  R row;
  row.mese = datareg.text().substr(3, 2);
  row.imponibile = imponibile.number();
  row.codiva = codiva.text();
  row.imposta = imposta.number();
  row.registro = registro.text();
  return row;
}

void Rmiva::writeSales() {
  OpenArchive<rec::iv> iv(session_, 2802, 2803);
  iv->A = vatRow<rec::iv>();
  iv->A.numero = registerNumber(numero.text());
  iv->A.datadoc = datadoc.text();
  iv->A.conto = subject_;
  iv->A.chiavereg = iv->A.registro + iv->A.numero;
  iv->A.datareg = datareg.text();
  ScriviRigaIva(session_, *iv);
}

void Rmiva::writePurchase() {
  OpenArchive<rec::ia> ia(session_, 2804, 2805);
  ia->A = vatRow<rec::ia>();
  ia->A.protocollo = common::zeroFill(protocollo.text(), 5);
  ia->A.numero = common::zeroFill(numero.text(), 6);
  ia->A.datadoc = datadoc.text();
  ia->A.conto = subject_;
  ia->A.chiavereg = ia->A.registro + ia->A.protocollo;
  ia->A.datareg = datareg.text();
  ScriviRigaIva(session_, *ia);
}

void Rmiva::writeReceipt() {
  OpenArchive<rec::ic> ic(session_, 2806, 2807);
  ic->A = vatRow<rec::ic>();
  ic->A.numero = registerNumber(numero.text());
  ic->A.datareg = common::DateToKey(datareg.text());
  ic->A.chiavereg = ic->A.registro + ic->A.numero;
  ScriviRigaIva(session_, *ic);
}

void Rmiva::clear() {
  for (Field* field : {&soggetto, &datareg, &datadoc, &numero, &protocollo, &imponibile, &codiva, &imposta})
    field->clear();
  soggetto.focus();
}

}  // namespace

std::unique_ptr<Form> makeRmiva(Session& session) { return std::make_unique<Rmiva>(session); }

}  // namespace tarvex
