// Stampa registro iva vendite, acquisti, corrispettivi: one screen for the three registers.
#include "common/text.h"
#include "session/checks.h"
#include "session/printing.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/register.h"
#include "vat/register_state.h"

namespace tarvex {
namespace {

using namespace ui;

// There is always a register and a month to print: a choice that was cleared falls back to the first.
void chosen(Choice& choice) {
  if (choice.index() < 0) choice.select(0);
}

class RegisterPrint : public Form {
 public:
  RegisterPrint(Session& session, const RegisterKind& kind);
  Layout layout() const override;
  void load() override { showLastMonth(); }

 private:
  bool isKept() const { return !kind_.counter.empty(); }  // receipts have no definitive print
  void showLastMonth();
  std::optional<Register> compute();
  void print();
  void tell(const Register& content);
  void explain();

  Session& session_;
  const RegisterKind& kind_;
  Choice registro{
      *this, "registro", "Registro:", Choice::Look::combo, {"1", "2", "3", "4", "5", "6", "7", "8", "9"}};
  Choice mese{*this, "mese", "Mese:", Choice::Look::combo};
  Label ultimo{*this, "ultimo", "Ultimo mese stampato:", 10};
  Check definitiva{*this, "definitiva", "Stampa &definitiva"};
  Check intestazione{*this, "intestazione", "&Intestazione azienda"};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Field salto{*this, "salto", "Salto righe iniziali:", Mask::digits(2)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

RegisterPrint::RegisterPrint(Session& session, const RegisterKind& kind)
    : Form(session.desk(), kind.unit,
           "Stampa " + common::lower(kind.name.substr(0, 1)) + std::string(kind.name.substr(1))),
      session_(session),
      kind_(kind) {
  mese.setItems({session.MonthNames.begin() + 1, session.MonthNames.end()});
  mese.select(static_cast<int>(common::numberValue(session.TodayText.substr(3, 2))) - 1);
  registro.select(0);
  registro.onChange = [this] { chosen(registro), showLastMonth(); };
  mese.onChange = [this] { chosen(mese); };
  anteprima.set(true);
  ultimo.setVisible(isKept());
  definitiva.setVisible(isKept());
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
  on(
      Key::F2, [this] { explain(); }, "perché questo numero?");
}

Layout RegisterPrint::layout() const {
  return column({group("Registro", {row({registro, mese}), row({ultimo})}),
                 group("Stampa", {row({definitiva}), row({intestazione}), row({anteprima}), row({salto})}),
                 space(), buttons({ok, annulla})});
}

void RegisterPrint::showLastMonth() {
  const int month = printedMonth(session_, kind_, registro.text());
  ultimo.setText(month > 0 ? session_.MonthNames[month] : std::string());
}

// Nothing when an archive fails, which has been reported: half a register is none.
std::optional<Register> RegisterPrint::compute() {
  const Busy busy(desk());
  const auto table = loadVatTable(session_);
  if (!table) return {};
  const std::string month = common::zeroFill(mese.index() + 1, 2);
  auto rows = kind_.read(session_, {registro.text(), month, month});
  if (!rows) return {};
  return makeRegister(kind_, std::move(*rows), *table);
}

void RegisterPrint::print() {
  const auto content = compute();
  if (!content) return;
  tell(*content);
  const RegisterPage page{
      .registro = registro.text(),
      .month = mese.text(),
      .year = session_.WorkYear,
      .letterhead = letterhead(session_, intestazione.on(), static_cast<int>(salto.number()), 3021)};
  const bool shown = showReport(desk(), layOut(kind_, *content, page, printSetup(session_)), anteprima.on());
  if (!shown || !definitiva.on()) return;
  keepPrintedMonth(session_, kind_, registro.text(), mese.index() + 1);
  showLastMonth();
}

void RegisterPrint::tell(const Register& content) {
  for (const RegisterNotice& notice : content.notices) {
    if (notice.about == RegisterNotice::About::missingCode)
      desk().warn(notice.text);
    else
      desk().show({notice.text, std::string(kProduct), Ask::ok, Icon::information});
  }
}

void RegisterPrint::explain() {
  auto content = compute();
  if (!content) return;
  showTrace(session_, title() + ", " + mese.text() + " " + session_.WorkYear,
            traceOf(std::make_shared<const Register>(std::move(*content))));
}

}  // namespace

std::unique_ptr<Form> makeStriv(Session& session) {
  return std::make_unique<RegisterPrint>(session, kSalesRegister);
}
std::unique_ptr<Form> makeStria(Session& session) {
  return std::make_unique<RegisterPrint>(session, kPurchaseRegister);
}
std::unique_ptr<Form> makeStric(Session& session) {
  return std::make_unique<RegisterPrint>(session, kReceiptsRegister);
}

}  // namespace tarvex
