// Variazione piano dei conti: the description and the opening balance of a voice.
#include "chart/account_field.h"
#include "chart/forms.h"
#include "chart/names.h"
#include "chart/voice.h"
#include "chart/voice_labels.h"
#include "common/text.h"
#include "session/predefined_accounts.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::string_view kPredefinedWarning =
    "Si sta variando un mastro o conto o sottoconto predefinito impostato dal programma. L'operazione è "
    "vivamente sconsigliata. In ogni caso se si cambia la descrizione si deve tenere presente che la voce "
    "del "
    "piano dei conti manterrà sempre la stessa funzione predefinita. L'impostazione originaria è: ";

// As the warning names a predefined voice; empty for any other.
std::string originalName(std::string_view code) {
  if (code == "00008") return "Imposta valore aggiunto";
  for (const PredefinedAccount& account : predefinedAccounts())
    if (account.key == code) return std::string(account.name);
  return {};
}

class Varpc : public Form {
 public:
  explicit Varpc(Session& session);
  Layout layout() const override;

 private:
  Leave leaveVoice();
  void registerVoice();
  bool mayRegister(const std::string& description);
  bool isFree(const std::string& description);
  void write(const std::string& description);
  void clear();

  Session& session_;
  std::string code_, name_;  // as read when the field was left
  Field voce{*this, "text1", "Voce:", Mask::text(30)};
  Label codice{*this, "codice", "Codice:", 20};
  Field descrizione{*this, "text2", "Descrizione:", Mask::text(static_cast<int>(kNameWidth))};
  Field saldo{*this, "text3", "Saldo iniziale:", Mask::amount()};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Varpc::Varpc(Session& session)
    : Form(session.desk(), "VARPC", "Variazione piano dei conti"), session_(session) {
  accountField(session, voce, {"m", "cc", "s"}, SearchList::chart);
  voce.onLeave = [this] { return leaveVoice(); };
  registra.onPress = [this] { registerVoice(); };
  annulla.onPress = [this] { close(); };
}

Layout Varpc::layout() const {
  return column({row({voce}), row({codice}), group("Voce", {row({descrizione}), row({saldo})}), space(),
                 buttons({registra, annulla})});
}

// Customers, suppliers and agents are changed on their cards.
Leave Varpc::leaveVoice() {
  if (voce.empty()) return code_.clear(), Leave::go;
  const bool found = readVoice(session_, voce.text(), 1120);
  const std::string kind = found ? session_.pc.B.tipo : std::string();
  if (kind != "m" && kind != "cc" && kind != "s") {
    desk().beep();
    return Leave::stay;
  }
  if (session_.pc.primaryKey() == code_) return Leave::go;  // what was typed below stays
  code_ = session_.pc.primaryKey();
  name_ = session_.pc.B.ragsoc;
  codice.setText(shownCode(session_.pc.B.codice));
  descrizione.setText(name_);
  saldo.setNumber(session_.pc.B.saldoiniziale);
  if (const std::string original = originalName(code_); !original.empty())
    desk().show({std::string(kPredefinedWarning) + original, "ATTENZIONE", Ask::ok, Icon::warning});
  return Leave::go;
}

void Varpc::registerVoice() {
  const std::string description = common::trim(descrizione.text());
  if (mayRegister(description)) write(description);
}

// A change of case alone is no other description: it needs neither check nor question.
bool Varpc::mayRegister(const std::string& description) {
  if (code_.empty()) return desk().beep(), voce.focus(), false;
  if (description.empty()) {
    desk().refuse("Non è stata inserita la descrizione", descrizione);
    return false;
  }
  if (common::upper(description) == common::upper(name_)) return true;
  return isFree(description) &&
         desk().confirm(
             "La descrizione è stata cambiata. Se sono state già effettuate delle registrazioni contabili la "
             "nuova descrizione avrà effetto retroattivo anche su queste. Confermare l'operazione ?",
             "Attenzione", true);
}

bool Varpc::isFree(const std::string& description) {
  const store::Code result = session_.pc.search(1, description);
  if (result == store::kNotFound) return true;
  if (result == store::kOk)
    desk().refuse("Descrizione già registrata", descrizione);
  else
    session_.CheckArchiveResult(store::Operation::read, session_.pc.code, 1121);
  return false;
}

// Under the voice's own lock, so that no posting is lost: what it has moved meanwhile is read again.
void Varpc::write(const std::string& description) {
  auto& pc = session_.pc;
  pc.spinLock(code_);
  pc.search(0, code_);
  session_.CheckArchiveResult(store::Operation::read, pc.code, 1122);
  if (session_.store.LastArchiveResult == store::kOk) {
    pc.A = pc.B;
    pc.A.ragsoc = description;
    pc.A.saldoiniziale = saldo.number();
    pc.A.saldo = pc.A.saldoiniziale + pc.A.dare - pc.A.avere;
    setGroupKeys(pc.A);
    pc.put(code_, store::Put::rewrite);
    session_.CheckArchiveResult(store::Operation::write, pc.code, 1123);
    const bool written = session_.store.LastArchiveResult == store::kOk;
    pc.flush();
    if (written)
      session_.log("Variata voce del piano dei conti " + code_ + " " + name_ + " / " + description);
  }
  pc.unlock(code_);
  clear();
}

void Varpc::clear() {
  code_.clear();
  for (Field* field : {&voce, &descrizione, &saldo}) field->clear();
  codice.setText({});
  voce.focus();
}

}  // namespace

std::unique_ptr<Form> makeVarpc(Session& session) { return std::make_unique<Varpc>(session); }

}  // namespace tarvex
