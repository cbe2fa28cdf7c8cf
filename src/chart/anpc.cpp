// Annullamento voce del piano dei conti, and anpc1, which shows the voice and asks.
#include <optional>

#include "archives/mc.h"
#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/st.h"
#include "chart/account_field.h"
#include "chart/forms.h"
#include "chart/voice_labels.h"
#include "common/amount.h"
#include "common/text.h"
#include "session/scan.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr double kFirstOfUsers = 50;  // the numbers below are those of the predefined voices

// In cents: what entries that were taken back leave of a sum of doubles is no amount.
bool hasAmounts(const rec::pc& voice) {
  return common::roundBalance(voice.saldo) != 0 || common::roundBalance(voice.dare) != 0 ||
         common::roundBalance(voice.avere) != 0;
}

// Whether the archive has a record of the voice, in an index whose keys begin with its code.
template <class R>
bool isUnder(Session& session, int index, const std::string& code) {
  OpenArchive<R> archive(session, 1137, 1138);
  store::Code result = archive->search(index, code);
  if (result == store::kNotFound) result = archive->next(index);
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, archive->code, 1139);
  return result == store::kOk && archive->B.conto == code;
}

class Anpc1 : public Form {
 public:
  Anpc1(Session& session, bool& confirmed) : Form(session.desk(), "anpc1", "Conferma annullamento") {
    domanda.setText("Si vuole annullare la voce del piano dei conti ?");
    labels.show(session);
    si.onPress = [this, &confirmed] {
      confirmed = true;
      close();
    };
    no.onPress = [this] { close(); };
  }
  Layout layout() const override {
    return column({labels.layout(), row({domanda}), space(), buttons({si, no})});
  }

 private:
  VoiceLabels labels{*this};
  Label domanda{*this, "domanda"};
  Button no{*this, "no", "&No", Button::Role::cancel};  // first, as the one that Enter presses
  Button si{*this, "si", "&Si"};
};

class Anpc : public Form {
 public:
  explicit Anpc(Session& session);
  Layout layout() const override { return column({row({voce}), space(), buttons({elimina, annulla})}); }

 private:
  Leave leaveVoice();
  void remove();
  bool erase();
  bool isFree();
  bool isNamed();
  std::optional<int> countOnLevel();
  void tellAmounts();

  Session& session_;
  std::string code_;
  Field voce{*this, "text1", "Voce:", Mask::text(30)};
  Button elimina{*this, "elimina", "&Elimina", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Anpc::Anpc(Session& session)
    : Form(session.desk(), "anpc", "Annullamento voce del piano dei conti"), session_(session) {
  accountField(session, voce, {"m", "cc", "s", "c", "f", "ag"}, SearchList::allVoices);
  voce.onLeave = [this] { return leaveVoice(); };
  elimina.onPress = [this] { remove(); };
  annulla.onPress = [this] { close(); };
}

Leave Anpc::leaveVoice() {
  code_.clear();
  if (voce.empty()) return Leave::go;
  const auto refuse = [this](const char* text, const char* title) {
    desk().beep();
    desk().show({text, title, Ask::ok, Icon::warning});
    return Leave::stay;
  };
  if (!readVoice(session_, voce.text(), 1130)) return desk().beep(), Leave::stay;
  if (common::numberValue(session_.pc.primaryKey()) < kFirstOfUsers)
    return refuse("Un conto predefinito non può essere annullato", "ATTENZIONE");
  if (hasAmounts(session_.pc.B)) return tellAmounts(), Leave::stay;
  code_ = session_.pc.primaryKey();
  return Leave::go;
}

void Anpc::remove() {
  if (code_.empty() || !readVoiceByCode(session_, code_, 1131)) return desk().beep(), voce.focus();
  if (!isFree()) return;
  bool confirmed = false;
  Anpc1 question(session_, confirmed);
  desk().run(question);
  if (!confirmed || !erase()) return;
  code_.clear();
  voce.clear();
  voce.focus();
}

// Under the voice's lock all is looked at once more: other stations have posted while the question stood.
bool Anpc::erase() {
  auto& pc = session_.pc;
  pc.spinLock(code_);
  const bool free = readVoiceByCode(session_, code_, 1132) && isFree();
  const std::string name = pc.B.ragsoc;
  if (free) {
    pc.erase(code_);
    session_.CheckArchiveResult(store::Operation::erase, pc.code, 1133);
    if (session_.store.LastArchiveResult == store::kOk)
      session_.log("Cancellato dal piano dei conti " + code_ + " " + name);
    pc.flush();
  }
  pc.unlock(code_);
  return free;
}

// By a line of the journal, also where its lines cancel each other, or by a due date.
bool Anpc::isNamed() {
  return isUnder<rec::mc>(session_, 11, code_) || isUnder<rec::sd>(session_, 3, code_) ||
         isUnder<rec::st>(session_, 3, code_) || isUnder<rec::sf>(session_, 3, code_);
}

// Of the voice that was read last: neither amounts, nor records that name it, nor voices below it. Otherwise
// the user has been told.
bool Anpc::isFree() {
  if (hasAmounts(session_.pc.B) || isNamed()) return tellAmounts(), false;
  const std::optional<int> onItsLevel = countOnLevel();
  if (!onItsLevel) return false;
  if (*onItsLevel <= 1) return true;
  desk().warn("Non può essere annullato - Risultano registrati conti o sottoconti associati");
  return false;
}

// The voices of a mastro or conto, itself included. Nothing when the chart cannot be read, which has been
// reported.
std::optional<int> Anpc::countOnLevel() {
  const std::string kind = session_.pc.B.tipo;
  if (kind != "m" && kind != "cc") return 1;
  int count = 0;
  const bool whole = scan<rec::pc>(session_, 1134, 1135, 1136, [&](const archives::Archive<rec::pc>& pc) {
    if ((kind == "m" ? pc.B.mastro : pc.B.conto) == code_) ++count;
  });
  return whole ? std::optional(count) : std::nullopt;
}

void Anpc::tellAmounts() {
  desk().beep();
  desk().warn("Non può essere annullato - Valori contabili già registrati");
}

}  // namespace

std::unique_ptr<Form> makeAnpc(Session& session) { return std::make_unique<Anpc>(session); }

}  // namespace tarvex
