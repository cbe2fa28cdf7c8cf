// Registrazione Piano dei Conti: a new mastro, conto or sottoconto.
#include <algorithm>
#include <string>
#include <vector>

#include "chart/forms.h"
#include "chart/names.h"
#include "chart/voice.h"
#include "common/text.h"

namespace tarvex {
namespace {

using namespace ui;

enum Kind { mastro, conto, sottoconto };  // in the order of the options

constexpr std::string_view kTipo[] = {"m", "cc", "s"};

struct Parent {
  std::string name, code;
};

class Rpc : public Form {
 public:
  explicit Rpc(Session& session);
  Layout layout() const override;
  void load() override;

 private:
  void showKind();
  void loadParents(Choice& list, std::vector<Parent>& parents, std::string_view tipo);
  void registerVoice();
  bool isNew();
  bool hasParent();
  bool hasDescription();
  bool fill();
  bool fillFromParent(const std::string& parent);
  bool refuseReserved(std::string_view parent);
  void startNext();

  Kind kind() const { return static_cast<Kind>(tipo.index()); }

  Session& session_;
  std::vector<Parent> mastri_, conti_;  // as listed

  Choice tipo{*this, "tipo", {}, Choice::Look::options, {"&Mastro", "C&onto", "&Sottoconto"}};
  Choice natura{*this, "natura", {}, Choice::Look::options, {"Patrimoniale", "Economico"}};
  Choice mastri{*this, "mastri", "Mastro associato", Choice::Look::combo};
  Choice conti{*this, "conti", "Conto associato", Choice::Look::combo};
  Field text1{*this, "text1", "Descrizione:", Mask::text(static_cast<int>(kNameWidth))};
  Field text2{*this, "text2", "Saldo iniziale:", Mask::amount()};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Rpc::Rpc(Session& session) : Form(session.desk(), "RPC", "Registrazione Piano dei Conti"), session_(session) {
  tipo.select(mastro);
  natura.select(0);
  tipo.onChange = natura.onChange = [this] { showKind(); };
  registra.onPress = [this] { registerVoice(); };
  annulla.onPress = [this] { close(); };
  showKind();
}

Layout Rpc::layout() const {
  return column({group("Tipo", {row({tipo}), row({natura}), row({mastri}), row({conti})}),
                 group("Voce", {row({text1}), row({text2})}), buttons({registra, annulla})});
}

void Rpc::load() {
  loadParents(mastri, mastri_, "m");
  loadParents(conti, conti_, "cc");
}

// The nature of a conto or sottoconto is that of its parent.
void Rpc::showKind() {
  for (Choice* always : {&tipo, &natura})
    if (always->index() < 0) always->select(0);
  natura.setVisible(kind() == mastro);
  mastri.setVisible(kind() == conto);
  conti.setVisible(kind() == sottoconto);
}

void Rpc::loadParents(Choice& list, std::vector<Parent>& parents, std::string_view kindOfParent) {
  const std::string chosen = list.text();
  parents.clear();
  auto& pc = session_.pc;
  store::Code result = pc.search(7, kindOfParent);
  for (; result == store::kOk && pc.B.tipo == kindOfParent; result = pc.next(7))
    parents.push_back({pc.B.ragsoc, pc.primaryKey()});
  if (result != store::kOk && result != store::kNotFound)
    session_.CheckArchiveResult(store::Operation::read, pc.code, 1100);
  std::sort(parents.begin(), parents.end(),
            [](const Parent& a, const Parent& b) { return common::upper(a.name) < common::upper(b.name); });
  std::vector<std::string> names;
  names.reserve(parents.size());
  for (const Parent& parent : parents) names.push_back(parent.name);
  list.setItems(std::move(names));
  list.selectText(chosen);
}

// The number is drawn before the last check, so that a voice refused by it leaves a hole in the numbers.
void Rpc::registerVoice() {
  if (!isNew() || !hasParent() || !hasDescription()) return;
  session_.pc.A = {};
  const std::string code = drawVoiceNumber(session_);
  if (code.empty() || !fill() || addVoice(session_, code).empty()) return;
  startNext();
}

// As typed: blanks at the end make another description here.
bool Rpc::isNew() {
  const store::Code result = session_.pc.search(1, text1.text());
  if (result == store::kNotFound) return true;
  if (result == store::kOk) {
    desk().refuse("Descrizione già registrata", text1);
  } else {
    session_.CheckArchiveResult(store::Operation::read, session_.pc.code, 1101);
  }
  return false;
}

bool Rpc::hasParent() {
  if (kind() == conto && mastri.index() < 0) {
    desk().refuse("Non è stato associato nessun mastro", mastri);
    return false;
  }
  if (kind() == sottoconto && conti.index() < 0) {
    desk().refuse("Non è stato associato nessun conto", conti);
    return false;
  }
  return true;
}

bool Rpc::hasDescription() {
  if (!common::trim(text1.text()).empty()) return true;
  desk().refuse("Non è stata inserita nessuna descrizione", text1);
  return false;
}

// The record but for what hangs on its number.
bool Rpc::fill() {
  rec::pc& voice = session_.pc.A;
  voice.ragsoc = common::trim(text1.text());
  voice.saldoiniziale = voice.saldo = text2.number();
  voice.tipo = kTipo[kind()];
  voice.natura = natura.index() == 0 ? "p" : "e";
  if (kind() == conto && !fillFromParent(mastri_[static_cast<std::size_t>(mastri.index())].code))
    return false;
  if (kind() == sottoconto && !fillFromParent(conti_[static_cast<std::size_t>(conti.index())].code))
    return false;
  setGroupKeys(voice);
  return true;
}

bool Rpc::fillFromParent(const std::string& code) {
  if (kind() == sottoconto && refuseReserved(code)) return false;
  const store::Code result = session_.pc.search(0, code);
  session_.CheckArchiveResult(store::Operation::read, session_.pc.code, 1102);
  if (result != store::kOk) return false;
  const rec::pc& parent = session_.pc.B;
  session_.pc.A.mastro = kind() == conto ? code : parent.mastro;
  if (kind() == sottoconto) session_.pc.A.conto = code;
  session_.pc.A.natura = parent.natura;
  return true;
}

bool Rpc::refuseReserved(std::string_view code) {
  const char* owners = code == kCustomersConto   ? "ai clienti"
                       : code == kSuppliersConto ? "ai fornitori"
                       : code == kAgentsConto    ? "agli agenti"
                                                 : nullptr;
  if (!owners) return false;
  desk().refuse(std::string("Il conto selezionato è riservato ") + owners, conti);
  return true;
}

void Rpc::startNext() {
  if (kind() == mastro) loadParents(mastri, mastri_, "m");
  if (kind() == conto) loadParents(conti, conti_, "cc");
  text1.clear();
  text2.clear();
  text1.focus();
}

}  // namespace

std::unique_ptr<Form> makeRpc(Session& session) { return std::make_unique<Rpc>(session); }

}  // namespace tarvex
