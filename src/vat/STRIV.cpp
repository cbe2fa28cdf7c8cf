// Stampa registro iva vendite.
#include "common/text.h"
#include "session/checks.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/register.h"

namespace tarvex {
namespace {

using namespace ui;

// There is always a register and a month to print: a choice that was cleared falls back to the first.
void chosen(Choice& choice) {
  if (choice.index() < 0) choice.select(0);
}

class Striv : public Form {
 public:
  explicit Striv(Session& session);
  Layout layout() const override;
  void load() override { showLastMonth(); }

 private:
  std::string counter() const { return std::string(kSalesRegister.counter) + registro.text(); }
  void showLastMonth();
  std::optional<Register> compute();
  void print();
  void tell(const Register& content);
  RegisterPage page();
  void keepMonth();

  Session& session_;
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

Striv::Striv(Session& session)
    : Form(session.desk(), "STRIV", "Stampa registro iva vendite"), session_(session) {
  mese.setItems({session.MonthNames.begin() + 1, session.MonthNames.end()});
  mese.select(static_cast<int>(common::numberValue(session.TodayText.substr(3, 2))) - 1);
  registro.select(0);
  registro.onChange = [this] { chosen(registro), showLastMonth(); };
  mese.onChange = [this] { chosen(mese); };
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Striv::layout() const {
  return column({group("Registro", {row({registro, mese}), row({ultimo})}),
                 group("Stampa", {row({definitiva}), row({intestazione}), row({anteprima}), row({salto})}),
                 space(), buttons({ok, annulla})});
}

void Striv::showLastMonth() {
  session_.pr.search(0, counter());
  session_.CheckArchiveResult(store::Operation::read, session_.pr.code, 3020);
  ultimo.setText(session_.store.LastArchiveResult == store::kOk ? session_.pr.B.testo : std::string());
}

// Nothing when an archive fails, which has been reported: half a register is none.
std::optional<Register> Striv::compute() {
  const Busy busy(desk());
  const auto table = loadVatTable(session_);
  if (!table) return {};
  auto rows = readSalesRows(session_, registro.text(), common::zeroFill(mese.index() + 1, 2));
  if (!rows) return {};
  return makeRegister(kSalesRegister, std::move(*rows), *table);
}

void Striv::print() {
  const auto content = compute();
  if (!content) return;
  tell(*content);
  const auto report = layOut(kSalesRegister, *content, page(),
                             {.font = session_.PrintFontName,
                              .size = static_cast<double>(session_.PrintSize),
                              .pageLines = session_.PageLength});
  if (anteprima.on())
    desk().preview(report);
  else
    desk().print(report);
  if (definitiva.on()) keepMonth();
}

void Striv::tell(const Register& content) {
  for (const RegisterNotice& notice : content.notices) {
    if (notice.about == RegisterNotice::About::missingCode)
      desk().warn(notice.text);
    else
      desk().show({notice.text, std::string(kProduct), Ask::ok, Icon::information});
  }
}

RegisterPage Striv::page() {
  RegisterPage page{.registro = registro.text(),
                    .month = mese.text(),
                    .year = session_.WorkYear,
                    .company = {},
                    .vatNumber = {},
                    .blankLines = static_cast<int>(salto.number())};
  if (!intestazione.on()) return page;
  page.company = session_.CompanyName;
  session_.dataz.search(0, session_.CompanyCode);
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 3021);
  if (session_.store.LastArchiveResult == store::kOk) page.vatNumber = session_.dataz.B.partitaiva;
  return page;
}

// The counter's record is shared by the stations, so that it is locked from its reading to its flush.
void Striv::keepMonth() {
  const std::string key = counter();
  auto& pr = session_.pr;
  pr.spinLock(key);
  pr.search(0, key);
  session_.CheckArchiveResult(store::Operation::read, pr.code, 3022);
  if (session_.store.LastArchiveResult == store::kOk) {
    pr.A = pr.B;
    pr.A.testo = mese.text();
    pr.put(key, store::Put::write);
    session_.CheckArchiveResult(store::Operation::write, pr.code, 3023);
    pr.flush();
    session_.CheckArchiveResult(store::Operation::write, pr.code, 3024);
  }
  pr.unlock(key);
  showLastMonth();
}

}  // namespace

std::unique_ptr<Form> makeStriv(Session& session) { return std::make_unique<Striv>(session); }

}  // namespace tarvex
