// Stampa Piano dei Conti.
#include "chart/forms.h"
#include "common/mask.h"
#include "common/text.h"
#include "session/printing.h"
#include "ui/form.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr int kByName = 1, kByCode = 18;
constexpr std::size_t kWidth = 96;
constexpr std::string_view kHeading =
    "Descrizione                         Saldo iniz.    Progr. dare   Progr. avere   Saldo finale";

std::string amount(double value) { return common::format("####,###,##0.00", value); }

struct Voice {
  std::string name, tipo, natura, mastro;
  double opening, dare, avere, saldo;
};

constexpr Column<Voice> kColumns[] = {
    {"Descrizione", 1, 31, common::Align::left, [](const Voice& v) { return v.name; }},
    {"Saldo iniz.", 33, 15, common::Align::right, [](const Voice& v) { return amount(v.opening); }},
    {"Progr. dare", 48, 15, common::Align::right, [](const Voice& v) { return amount(v.dare); }},
    {"Progr. avere", 63, 15, common::Align::right, [](const Voice& v) { return amount(v.avere); }},
    {"Saldo finale", 78, 15, common::Align::right, [](const Voice& v) { return amount(v.saldo); }},
};
static_assert(ordered(kColumns));

class Stpc : public Form {
 public:
  explicit Stpc(Session& session);
  Layout layout() const override;

 private:
  bool isListed(const rec::pc& voice) const;
  std::optional<std::vector<Voice>> read(int index);
  void writeByMastro(Paged& out, const std::vector<Voice>& voices);
  void print();

  Session& session_;
  Choice ordine{*this, "ordine", "Ordine:", Choice::Look::options, {"Al&fabetico", "Per &mastro"}};
  Check clienti{*this, "clienti", "&Clienti"};
  Check fornitori{*this, "fornitori", "F&ornitori"};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "O&K", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stpc::Stpc(Session& session) : Form(session.desk(), "STPC", "Stampa Piano dei Conti"), session_(session) {
  ordine.select(0);
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stpc::layout() const {
  return column({group("Ordine", {row({ordine})}), group("Stampa", {row({clienti, fornitori, anteprima})}),
                 space(), buttons({ok, annulla})});
}

// Agents stand with the suppliers.
bool Stpc::isListed(const rec::pc& voice) const {
  if (voice.tipo == "c") return clienti.on();
  return (voice.tipo != "f" && voice.tipo != "ag") || fornitori.on();
}

// Nothing when the chart cannot be read, which has been reported.
std::optional<std::vector<Voice>> Stpc::read(int index) {
  const Busy busy(desk());
  std::vector<Voice> voices;
  auto& pc = session_.pc;
  pc.bof(index);
  while (pc.next(index) == store::kOk) {
    const rec::pc& v = pc.B;
    if (!isListed(v)) continue;
    const bool starred = index == kByName && v.tipo == "m";
    voices.push_back({common::cut((starred ? "*" : "") + v.ragsoc, 30), v.tipo, v.natura, v.mastro,
                      v.saldoiniziale, v.dare, v.avere, v.saldo});
  }
  if (session_.store.LastArchiveResult == store::kNotFound) return voices;
  session_.CheckArchiveResult(store::Operation::read, pc.code, 1141);
  return {};
}

// The balance sheet's voices first, then those of the year; a blank line between two mastri.
void Stpc::writeByMastro(Paged& out, const std::vector<Voice>& voices) {
  std::string mastro;
  for (const std::string_view natura : {"p", "e"})
    for (const Voice& voice : voices) {
      if (voice.natura != natura) continue;
      if (!mastro.empty() && voice.mastro != mastro && !out.atTop()) out.line();
      mastro = voice.mastro;
      out.line(line(kColumns, voice));
    }
}

void Stpc::print() {
  const bool byName = ordine.index() <= 0;
  const auto voices = read(byName ? kByName : kByCode);
  if (!voices) return;
  auto report = std::make_shared<Report>("Piano dei conti", fitted(printSetup(session_), kWidth));
  Paged out(*report, kWidth, [&](Paged& head, int page) {
    head.centred("PIANO DEI CONTI");
    head.line(session_.CompanyName);
    const std::string date = "Data: " + session_.TodayText, number = "Pag. " + std::to_string(page);
    head.line(common::fit(date, kWidth - number.size()) + number);
    head.bold(kHeading);
    head.rule();
  });
  if (byName)
    for (const Voice& voice : *voices) out.line(line(kColumns, voice));
  else
    writeByMastro(out, *voices);
  showReport(desk(), report, anteprima.on());
}

}  // namespace

std::unique_ptr<Form> makeStpc(Session& session) { return std::make_unique<Stpc>(session); }

}  // namespace tarvex
