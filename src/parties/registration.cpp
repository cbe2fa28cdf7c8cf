#include "parties/registration.h"

#include "parties/card.h"
#include "session/checks.h"

namespace tarvex {
namespace {

using namespace ui;

class Registration : public Form {
 public:
  Registration(Session& session, const RegistrationKind& kind);
  Layout layout() const override { return column({card_.layout(), buttons({registra, annulla})}); }
  void load() override { card_.load(); }

 private:
  bool isNew(const std::string& name);
  void registerParty();
  void startNext();

  Session& session_;
  const RegistrationKind kind_;
  PartyCard card_{session_, *this, kind_.party};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Registration::Registration(Session& session, const RegistrationKind& kind)
    : Form(session.desk(), kind.unit, kind.title), session_(session), kind_(kind) {
  card_.anagrafica.ragsoc.onLeave = [this] {
    const std::string name = card_.name();
    return name.empty() || isNew(name) ? Leave::go : Leave::stay;
  };
  card_.checkWhileTyping();
  registra.onPress = [this] { registerParty(); };
  annulla.onPress = [this] { close(); };
}

bool Registration::isNew(const std::string& name) {
  if (!readVoice(session_, name, 4100)) return true;
  desk().refuse("Già registrato", card_.anagrafica.ragsoc);
  return false;
}

// The order is the behaviour. Another station may have taken the name since its field was left.
void Registration::registerParty() {
  if (!card_.hasName() || !card_.hasVatCodes() || !isNew(card_.name())) return;
  rec::pc& party = session_.pc.A;
  party = {};
  if (!card_.store(party)) return;
  party.tipo = kind_.party.tipo;
  party.mastro = kind_.party.mastro;
  party.conto = kind_.party.conto;
  party.natura = "p";
  setGroupKeys(party);
  const std::string name = party.ragsoc;
  if (addVoice(session_, drawVoiceNumber(session_)).empty()) return;
  if (kind_.tellsName) session_.LastRegisteredName = name;
  if (kind_.oneOnly) return close();
  startNext();
}

void Registration::startNext() {
  card_.clear();
  card_.anagrafica.ragsoc.focus();
}

}  // namespace

std::unique_ptr<Form> makeRegistration(Session& session, const RegistrationKind& kind) {
  return std::make_unique<Registration>(session, kind);
}

}  // namespace tarvex
