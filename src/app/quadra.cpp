// Quadratura: what the rules of the books find, on the screen and on paper.
#include "app/forms.h"
#include "app/verify.h"
#include "common/amount.h"
#include "common/text.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Quadra : public Form {
 public:
  explicit Quadra(Session& session);
  Layout layout() const override;

 private:
  void check();
  void show();
  void print();

  Session& session_;
  std::vector<Violation> found_;
  List esito{*this, "esito", "Esito", {{"Controllo", 40}, {"Dove", 56}, {"Differenza", 14, true}}};
  List archivi{*this, "archivi", "Record", {{"Archivio e chiave", 24}}};
  Label rimedio{*this, "rimedio", "Rimedio:", 60};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button stampa{*this, "stampa", "&Stampa"};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

std::string differenceOf(const Violation& violation) {
  return violation.difference == 0 ? std::string() : common::toText(violation.difference);
}

std::string titleOf(const Violation& violation) {
  return (violation.notice ? "Avviso: " : "") + std::string(violation.title);
}

Quadra::Quadra(Session& session) : Form(session.desk(), "quadra", "Quadratura"), session_(session) {
  esito.onSelect = [this] { show(); };
  esito.setHeight(9);
  archivi.setHeight(5);
  ok.onPress = [this] { check(); };
  stampa.onPress = [this] { print(); };
  stampa.setEnabled(false);
  annulla.onPress = [this] { close(); };
}

Layout Quadra::layout() const {
  return column({esito, row({rimedio}), archivi, buttons({ok, stampa, annulla})});
}

void Quadra::check() {
  {
    const Busy busy(desk());
    found_ = verify(session_, [this](std::size_t done, std::size_t all) { desk().progress(done, all); });
  }
  std::vector<std::vector<std::string>> lines;
  lines.reserve(found_.size());
  for (const Violation& violation : found_)
    lines.push_back({titleOf(violation), violation.text, differenceOf(violation)});
  esito.setRows(std::move(lines));
  esito.select(found_.empty() ? -1 : 0);
  stampa.setEnabled(true);
  show();
  if (found_.empty()) desk().show({"La contabilità quadra", "Tarvex", Ask::ok, Icon::information});
}

// The records of the finding that is selected, and what mends it.
void Quadra::show() {
  const int chosen = esito.selected();
  std::vector<std::vector<std::string>> records;
  rimedio.setText("");
  if (chosen >= 0) {
    const Violation& violation = found_[static_cast<std::size_t>(chosen)];
    rimedio.setText(violation.repair);
    for (const std::string& record : violation.records) records.push_back({record});
  }
  archivi.setRows(std::move(records));
}

constexpr Column<Violation> kColumns[] = {
    {"Controllo", 1, 46, common::Align::left, titleOf},
    {"Dove", 48, 70, common::Align::left, [](const Violation& violation) { return violation.text; }},
    {"Differenza", 119, 14, common::Align::right, differenceOf},
};
static_assert(ordered(kColumns));

// The records below their finding, as many in a line as there is room for.
std::vector<std::string> recordLines(const Violation& violation) {
  constexpr std::size_t kRoom = 120;
  std::vector<std::string> lines;
  for (const std::string& record : violation.records) {
    if (lines.empty() || lines.back().size() + record.size() + 2 > kRoom) lines.emplace_back("    ");
    if (lines.back().size() > 4) lines.back() += ", ";
    lines.back() += record;
  }
  return lines;
}

void Quadra::print() {
  constexpr std::size_t width = 132;
  auto report = std::make_shared<Report>(title(), fitted(printSetup(session_), width));
  Paged out(*report, width, [&](Paged& head, int page) {
    head.centred(session_.CompanyName + " " + session_.WorkYear);
    head.centred(title());
    head.right("Pagina " + std::to_string(page));
    head.bold(heading(kColumns));
    head.rule();
  });
  for (const Violation& violation : found_) {
    out.line(line(kColumns, violation));
    for (const std::string& records : recordLines(violation)) out.line(records);
    out.line("    Rimedio: " + std::string(violation.repair));
  }
  if (found_.empty()) out.line("La contabilità quadra");
  desk().preview(std::move(report));
}

}  // namespace

std::unique_ptr<Form> makeQuadra(Session& session) { return std::make_unique<Quadra>(session); }

}  // namespace tarvex
