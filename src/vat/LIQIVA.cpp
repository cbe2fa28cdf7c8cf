// Liquidazione Iva: of a period, of the whole year, of a single register. One screen; the last two write
// nothing.
#include <utility>

#include "common/text.h"
#include "session/printing.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/period_fields.h"
#include "vat/settlement.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr int kExcludedCodes = 5;
constexpr std::string_view kExcludedCaption =
    "Codici iva delle registrazioni da non inserire nel calcolo dell'ammontare degli acquisti:";

struct Variant {
  std::string_view unit, title;
  bool ofYear, ofRegister;
};
constexpr Variant kPeriod{"LIQIVA", "Liquidazione Iva", false, false};
constexpr Variant kYear{"LIQIVA1", "Liquidazione Iva annuale", true, false};
constexpr Variant kRegister{"LIQIVASR", "Liquidazione iva singolo registro", false, true};

class Liqiva : public Form {
 public:
  Liqiva(Session& session, const Variant& variant);
  Layout layout() const override;

 private:
  struct Computed {
    Settlement settlement;
    std::shared_ptr<const SettlementRows> rows;
  };
  VatPeriod chosenPeriod() const;
  bool isDefinitive() const { return definitiva.visible() && definitiva.on(); }
  void enable();
  bool refused();
  std::optional<SettlementTerms> terms();
  std::optional<Computed> compute(bool names);
  void print();
  void keep(const Settlement& settlement);
  void explain();

  Session& session_;
  const Variant& variant_;
  PeriodFields periodo{*this, session_};
  Choice registro{
      *this, "registro", "Registro:", Choice::Look::combo, {"1", "2", "3", "4", "5", "6", "7", "8", "9"}};
  Check definitiva{*this, "definitiva", "&Definitiva"};
  Check ventilazione{*this, "ventilazione", "&Ventilazione Iva"};
  Field importo{*this, "importo", "Importo corrispettivi:", Mask::amount()};
  Label esclusiLabel{*this, "esclusiLabel"};
  Grid esclusi{*this, "esclusi", kExcludedCodes};
  GridColumn codici{esclusi, "codice", "Codice", Mask::text(5)};
  Check interessi{*this, "interessi", "&Interessi versamento trimestrale:"};
  Field percentuale{*this, "percentuale", "Percentuale:", Mask::amount(2, 6)};
  Check arrotonda{*this, "arrotonda", "Totali arrotondati ad un &Euro"};
  Check intestazione{*this, "intestazione", "Intestaz. a&zienda"};
  Check anteprima{*this, "anteprima", "Antepr. di &stampa"};
  Field salto{*this, "salto", "Salto righe iniziali:", Mask::digits(2)};
  Field note{*this, "note", "Note:", Mask::text(60)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Liqiva::Liqiva(Session& session, const Variant& variant)
    : Form(session.desk(), variant.unit, variant.title), session_(session), variant_(variant) {
  esclusiLabel.setText(kExcludedCaption);
  esclusi.foldInto(kExcludedCodes);
  registro.select(0);
  registro.onChange = [this] {
    if (registro.index() < 0) registro.select(0);
  };
  registro.setVisible(variant.ofRegister);
  definitiva.setVisible(!variant.ofYear && !variant.ofRegister);
  periodo.setVisible(!variant.ofYear);
  percentuale.setNumber(1);
  anteprima.set(true);
  periodo.onChange = ventilazione.onChange = interessi.onChange = [this] { enable(); };
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
  on(
      Key::F2, [this] { explain(); }, "perché questo numero?");
  enable();
}

Layout Liqiva::layout() const {
  const ui::Layout which = column({periodo.layout(), row({registro}), row({definitiva})}),
                   how = column({row({arrotonda}), row({interessi}), row({percentuale})});
  // Of the year nothing is chosen: what is hidden then lies behind the rest.
  return column({variant_.ofYear ? group("Calcolo", {how, which})
                                 : side({group("Liquidazione", {which}), group("Calcolo", {how})}),
                 group("Ventilazione", {row({ventilazione, importo}), row({esclusiLabel}), esclusi}),
                 group("Stampa", {row({intestazione, anteprima, salto}), row({note})}), space(),
                 buttons({ok, annulla})});
}

VatPeriod Liqiva::chosenPeriod() const {
  return variant_.ofYear ? VatPeriod{VatPeriod::Length::year, 1} : periodo.period();
}

// Interest belongs to who settles by the quarter.
void Liqiva::enable() {
  importo.setEnabled(ventilazione.on());
  esclusi.setEnabled(ventilazione.on());
  interessi.setEnabled(!variant_.ofYear && periodo.isQuarterly());
  percentuale.setEnabled(interessi.enabled() && interessi.on());
}

bool Liqiva::refused() {
  if (!ventilazione.on() || !importo.empty()) return false;
  desk().refuse("Non è stato inserito l'importo", importo);
  return true;
}

std::optional<SettlementTerms> Liqiva::terms() {
  const auto balances = readVatBalances(session_);
  if (!balances) return {};
  SettlementTerms terms{.period = chosenPeriod(),
                        .registro = variant_.ofRegister ? registro.text() : std::string(),
                        .previous = previousBalance(*balances, chosenPeriod()),
                        .ventilation = {},
                        .wholeEuros = arrotonda.on(),
                        .interestPercent = {},
                        .minimum = session_.param.minimoiva};
  if (percentuale.enabled()) terms.interestPercent = percentuale.number();
  if (!ventilazione.on()) return terms;
  terms.ventilation = Ventilation{importo.number(), {}};
  for (int row = 1; row <= kExcludedCodes; ++row)
    if (std::string code = common::trim(codici[row].text()); !code.empty())
      terms.ventilation->excluded.push_back(std::move(code));
  return terms;
}

// Nothing when an archive fails, which has been reported. The rows bear names where somebody will read them.
std::optional<Liqiva::Computed> Liqiva::compute(bool names) {
  const Busy busy(desk());
  const auto table = loadVatTable(session_);
  if (!table) return {};
  auto terms = this->terms();
  if (!terms) return {};
  auto rows = readSettlementRows(session_, terms->period, terms->registro, names);
  if (!rows) return {};
  const auto kept = std::make_shared<SettlementRows>(std::move(*rows));
  Settlement settlement = settle(std::move(*terms), *kept, *table);
  return Computed{std::move(settlement), kept};
}

void Liqiva::print() {
  if (refused()) return;
  const auto computed = compute(false);
  if (!computed) return;
  const SettlementPage page{
      .title = titleOf(session_, computed->settlement.terms),
      .note = note.text(),
      .letterhead = letterhead(session_, intestazione.on(), static_cast<int>(salto.number()), 3048)};
  const bool shown =
      showReport(desk(), layOut(computed->settlement, page, printSetup(session_)), anteprima.on());
  if (shown && isDefinitive()) keep(computed->settlement);
}

void Liqiva::keep(const Settlement& settlement) {
  if (!isCarried(settlement)) return;
  changeVatBalances(session_, [&](rec::si& balances) {
    saldoOf(balances, settlement.terms.period.number) = settlement.result;
  });
}

void Liqiva::explain() {
  if (refused()) return;
  const auto computed = compute(true);
  if (!computed) return;
  showTrace(session_, titleOf(session_, computed->settlement.terms),
            traceOf(computed->settlement, computed->rows));
}

}  // namespace

std::unique_ptr<Form> makeLiqiva(Session& session) { return std::make_unique<Liqiva>(session, kPeriod); }
std::unique_ptr<Form> makeLiqiva1(Session& session) { return std::make_unique<Liqiva>(session, kYear); }
std::unique_ptr<Form> makeLiqivasr(Session& session) { return std::make_unique<Liqiva>(session, kRegister); }

}  // namespace tarvex
