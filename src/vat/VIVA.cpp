// Situazione Iva: the figures of a period on the screen, without a print.
#include <algorithm>
#include <cmath>

#include "common/text.h"
#include "ui/form.h"
#include "vat/forms.h"
#include "vat/period_fields.h"
#include "vat/settlement.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

using namespace ui;

class Viva : public Form {
 public:
  explicit Viva(Session& session);
  Layout layout() const override;
  void load() override { show(); }

 private:
  bool compute(bool names);
  void show();
  void explain();

  Session& session_;
  Settlement settlement_;
  std::shared_ptr<SettlementRows> rows_;
  PeriodFields periodo{*this, session_};
  List totali{*this, "totali", "Totali", {{"", 24}, {"Importo", 18, true}}};
  Button perche{*this, "perche", "&Perché questo numero?"};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Viva::Viva(Session& session) : Form(session.desk(), "VIVA", "Situazione Iva"), session_(session) {
  periodo.onChange = [this] { show(); };
  totali.onPick = perche.onPress = [this] { explain(); };
  chiudi.onPress = [this] { close(); };
  on(
      Key::F2, [this] { explain(); }, "perché questo numero?");
}

Layout Viva::layout() const { return column({periodo.layout(), totali, buttons({perche, chiudi})}); }

// False when an archive fails, which has been reported.
bool Viva::compute(bool names) {
  const Busy busy(desk());
  const auto table = loadVatTable(session_);
  if (!table) return false;
  const auto balances = readVatBalances(session_);
  if (!balances) return false;
  SettlementTerms terms;
  terms.period = periodo.period();
  terms.previous = previousBalance(*balances, terms.period);
  auto rows = readSettlementRows(session_, terms.period, {}, names);
  if (!rows) return false;
  rows_ = std::make_shared<SettlementRows>(std::move(*rows));
  settlement_ = settle(std::move(terms), *rows_, *table);
  return true;
}

void Viva::show() {
  std::vector<std::vector<std::string>> lines;
  if (compute(false))
    for (const Figure& figure : figuresOf(settlement_))
      lines.push_back({common::trim(figure.name), totalAmount(figure.amount)});
  const int last = static_cast<int>(lines.size()) - 1;
  totali.setRows(std::move(lines));
  totali.select(last);
}

void Viva::explain() {
  if (compute(true))
    showTrace(session_, titleOf(session_, settlement_.terms), traceOf(settlement_, rows_),
              std::max(0, totali.selected()));
}

}  // namespace

std::unique_ptr<Form> makeViva(Session& session) { return std::make_unique<Viva>(session); }

}  // namespace tarvex
