// Perché questo numero? A total, and below it what makes it.
#include "common/amount.h"
#include "common/text.h"
#include "session/printing.h"
#include "session/trace.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Perche : public Form {
 public:
  Perche(Session& session, const std::string& title, Trace trace, int first);
  Layout layout() const override { return column({totali, righe, buttons({stampa, chiudi})}); }

 private:
  void explain();
  void print();

  Session& session_;
  Trace trace_;
  std::vector<TraceStep> steps_;
  List totali{*this, "totali", "Totale", {{"Totale", 40}, {"Importo", 18, true}}};
  List righe{*this, "righe", "Come si forma", {{"Voce", 74}, {"Importo", 18, true}}};
  Button stampa{*this, "stampa", "&Stampa", Button::Role::main};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

// A rounding may lie below the cent: what it takes away is shown, or nobody could follow it.
std::string amountOf(const TraceStep& step) { return common::toText(step.amount, step.isRounding ? 6 : 2); }

class StepRows : public Rows {
 public:
  explicit StepRows(const std::vector<TraceStep>& steps) : steps_(steps) {}
  std::size_t count() const override { return steps_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override {
    return column == 0 ? steps_[row].text : amountOf(steps_[row]);
  }

 private:
  const std::vector<TraceStep>& steps_;
};

Perche::Perche(Session& session, const std::string& title, Trace trace, int first)
    : Form(session.desk(), "perche", title), session_(session), trace_(std::move(trace)) {
  std::vector<std::vector<std::string>> rows;
  rows.reserve(trace_.size());
  for (const TracedTotal& total : trace_) rows.push_back({total.name, common::toText(total.amount)});
  totali.setRows(std::move(rows));
  totali.select(first);
  totali.onSelect = [this] { explain(); };
  stampa.onPress = [this] { print(); };
  chiudi.onPress = [this] { close(); };
  explain();
}

void Perche::explain() {
  righe.setRows(std::vector<std::vector<std::string>>());
  const int chosen = totali.selected();
  steps_ = chosen < 0 ? std::vector<TraceStep>() : trace_[static_cast<std::size_t>(chosen)].steps();
  righe.setRows(std::make_unique<StepRows>(steps_));
  stampa.setEnabled(chosen >= 0);
}

constexpr ui::Column<TraceStep> kColumns[] = {
    {"Voce", 1, 76, common::Align::left, [](const TraceStep& step) { return step.text; }},
    {"Importo", 78, 18, common::Align::right, amountOf},
};
static_assert(ui::ordered(kColumns));

void Perche::print() {
  constexpr std::size_t width = 95;
  const TracedTotal& total = trace_[static_cast<std::size_t>(totali.selected())];
  auto report = std::make_shared<Report>(title() + ": " + total.name, fitted(printSetup(session_), width));
  Paged out(*report, width, [&](Paged& head, int page) {
    head.centred(title());
    head.centred(total.name);
    head.right("Pagina " + std::to_string(page));
    head.bold(heading(kColumns));
    head.rule();
  });
  for (const TraceStep& step : steps_) out.line(line(kColumns, step));
  out.rule();
  out.bold(line(kColumns, TraceStep{total.name, total.amount}));
  desk().preview(std::move(report));
}

}  // namespace

void showTrace(Session& session, const std::string& title, Trace trace, int first) {
  Perche form(session, title, std::move(trace), first);
  session.desk().run(form);
}

}  // namespace tarvex
