// Riepilogo iva corrispettivi: the receipts of some days by rate.
#include <map>

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "session/checks.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/register.h"

namespace tarvex {
namespace {

using namespace ui;

class Riepcorr : public Form {
 public:
  explicit Riepcorr(Session& session);
  Layout layout() const override;

 private:
  bool refused(Field& date);
  void show();

  Session& session_;
  Field dalla{*this, "dalla", "Dalla data:", Mask::pattern(session_.YearDateMask)};
  Field alla{*this, "alla", "Alla data:", Mask::pattern(session_.YearDateMask)};
  List riepilogo{*this,
                 "riepilogo",
                 "Riepilogo",
                 {{"Aliquota", 10}, {"Imponibile", 18, true}, {"Iva", 18, true}, {"Totale", 18, true}}};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Riepcorr::Riepcorr(Session& session)
    : Form(session.desk(), "RIEPCORR", "Riepilogo iva corrispettivi"), session_(session) {
  dalla.setText(session.YearStartDate);
  alla.setText(lastDayShown(session));
  ok.onPress = [this] { show(); };
  annulla.onPress = [this] { close(); };
}

Layout Riepcorr::layout() const { return column({row({dalla, alla}), riepilogo, buttons({ok, annulla})}); }

bool Riepcorr::refused(Field& date) {
  std::string typed = date.text();
  if (ValidateWorkDate(session_, typed)) return false;
  date.focus();
  return true;
}

std::vector<std::string> lineOf(std::string rate, const VatSum& sum) {
  return {std::move(rate), totalAmount(sum.imponibile), totalAmount(sum.imposta),
          totalAmount(sum.imponibile + sum.imposta)};
}

void Riepcorr::show() {
  if (refused(dalla) || refused(alla)) return;
  const Busy busy(desk());
  const auto rows = readReceiptRows(session_, {.registro = {}, .firstMonth = "01", .lastMonth = "12"});
  if (!rows) return;
  const std::string first = common::DateToKey(dalla.text()), last = common::DateToKey(alla.text());
  std::map<double, VatSum> byRate;
  VatSum all;
  for (const RegisterRow& row : *rows) {
    const std::string day = common::DateToKey(row.datareg);
    if (day < first || day > last) continue;
    byRate[row.aliquota].add(row.imponibile, row.imposta);
    all.add(row.imponibile, row.imposta);
  }
  std::vector<std::vector<std::string>> lines;
  for (auto at = byRate.rbegin(); at != byRate.rend(); ++at)
    lines.push_back(lineOf(rateText(at->first), at->second));
  lines.push_back(lineOf("Totale", all));
  riepilogo.setRows(std::move(lines));
}

}  // namespace

std::unique_ptr<Form> makeRiepcorr(Session& session) { return std::make_unique<Riepcorr>(session); }

}  // namespace tarvex
