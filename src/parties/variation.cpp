#include "parties/variation.h"

#include "common/text.h"
#include "parties/card.h"
#include "session/checks.h"

namespace tarvex {
namespace {

using namespace ui;

class Variation : public Form {
 public:
  Variation(Session& session, const VariationKind& kind);
  Layout layout() const override;
  void load() override { card_.load(); }
  void unload() override { letGo(); }

 private:
  Leave leaveSearch();
  bool take(const std::string& code);
  void letGo();
  void registerChanges();
  bool isNewName();
  bool rewrite();
  void startNext();
  bool isRenamed() const { return common::upper(card_.name()) != common::upper(name_); }
  // The lock of the card while it stands open; the record's own one belongs to those who write it.
  static std::string editLock(const std::string& code) { return code + " scheda"; }

  Session& session_;
  const VariationKind kind_;
  std::string code_, name_;  // of the record shown; empty while there is none

  Field ricerca{*this, "ricerca", kind_.party.field, Mask::text(30)};
  PartyCard card_{session_, *this, kind_.party};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Variation::Variation(Session& session, const VariationKind& kind)
    : Form(session.desk(), kind.unit, kind.title), session_(session), kind_(kind) {
  accountField(session_, ricerca, {kind_.party.tipo}, kind_.party.search);
  ricerca.onLeave = [this] { return leaveSearch(); };
  card_.checkWhileTyping();
  registra.onPress = [this] { registerChanges(); };
  annulla.onPress = [this] { close(); };
}

Layout Variation::layout() const {
  return column({row({ricerca}), card_.layout(), buttons({registra, annulla})});
}

// --- the record ---

// Passing by the field once more leaves what was changed on the card as it stands.
Leave Variation::leaveSearch() {
  const std::string name = common::trim(ricerca.text());
  if (name.empty() || (!code_.empty() && name == name_)) return Leave::go;
  if (!readVoice(session_, name, 4200) || session_.pc.B.tipo != kind_.party.tipo) {
    desk().beep();
    return Leave::stay;
  }
  return take(session_.pc.primaryKey()) ? Leave::go : Leave::stay;
}

// The card that stands is let go only for one that can be had.
bool Variation::take(const std::string& code) {
  const store::Code result = session_.pc.lock(editLock(code));
  if (result == store::kNotFound) {
    desk().refuse("La scheda è in corso di variazione su un'altra postazione");
    return false;
  }
  session_.CheckArchiveResult(store::Operation::read, session_.pc.code, 4201);
  if (result != store::kOk) return false;
  if (!readVoiceByCode(session_, code, 4202)) {
    session_.pc.unlock(editLock(code));
    return false;
  }
  const rec::pc party = session_.pc.B;
  letGo();
  code_ = code;
  name_ = party.ragsoc;
  card_.clear();
  card_.load();  // what the card before has added to the lists is no choice for this one
  card_.show(party);
  return true;
}

void Variation::letGo() {
  if (code_.empty()) return;
  session_.pc.unlock(editLock(code_));
  code_.clear();
  name_.clear();
}

// --- saving ---

// The order is the behaviour.
void Variation::registerChanges() {
  if (code_.empty()) {
    desk().beep();
    return ricerca.focus();
  }
  if (!card_.hasName() || !isNewName() || !card_.hasVatCodes()) return;
  if (isRenamed() &&
      !desk().confirm("La ragione sociale è stata cambiata. Se sono state già effettuate delle "
                      "registrazioni contabili la nuova descrizione avrà effetto retroattivo "
                      "anche su queste. Confermare l'operazione ?",
                      "Attenzione", true))
    return;
  if (rewrite()) startNext();
}

// A change of case alone takes no other's name, unless another voice is spelled exactly so.
bool Variation::isNewName() {
  if (!readVoice(session_, card_.name(), 4203) || session_.pc.primaryKey() == code_) return true;
  desk().refuse("Descrizione già registrata", card_.anagrafica.ragsoc);
  return false;
}

// Of the record as it stands now: postings may have changed it since it was shown.
bool Variation::rewrite() {
  auto& pc = session_.pc;
  pc.spinLock(code_);
  bool written = false;
  if (pc.search(0, code_) != store::kOk) {
    session_.CheckArchiveResult(store::Operation::read, pc.code, 4204);
  } else {
    rec::pc party = pc.B;
    if (card_.store(party)) {
      setGroupKeys(party);
      pc.A = std::move(party);
      const bool put = pc.put(code_, store::Put::rewrite) == store::kOk;
      if (!put || pc.flush() != store::kOk)
        session_.CheckArchiveResult(store::Operation::write, pc.code, 4205);
      else
        written = true;
    }
  }
  pc.unlock(code_);
  return written;
}

void Variation::startNext() {
  letGo();
  card_.clear();
  ricerca.clear();
  ricerca.focus();
}

}  // namespace

std::unique_ptr<Form> makeVariation(Session& session, const VariationKind& kind) {
  return std::make_unique<Variation>(session, kind);
}

}  // namespace tarvex
