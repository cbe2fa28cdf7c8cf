// Registrazione cliente: a new customer.
#include "chart/account_field.h"
#include "chart/voice.h"
#include "common/text.h"
#include "parties/card.h"
#include "parties/checks.h"
#include "parties/forms.h"
#include "session/checks.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr PartyKind kCustomers{"c", "cliente"};
constexpr std::string_view kCreditsMastro = "00001";

class Rcliente : public Form {
 public:
  explicit Rcliente(Session& session);
  Layout layout() const override { return column({card_.layout(), buttons({registra, annulla})}); }
  void load() override { card_.load(); }

 private:
  Leave leaveName();
  Leave leaveVatNumber();
  Leave leaveEmail();
  void registerCustomer();
  bool hasName();
  bool hasVatCodes();

  Session& session_;
  CustomerCard card_{session_, *this};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Rcliente::Rcliente(Session& session)
    : Form(session.desk(), "RCLIENTE", "Registrazione cliente"), session_(session) {
  card_.anagrafica.ragsoc.onLeave = [this] { return leaveName(); };
  card_.anagrafica.partitaiva.onLeave = [this] { return leaveVatNumber(); };
  card_.anagrafica.email.onLeave = [this] { return leaveEmail(); };
  registra.onPress = [this] { registerCustomer(); };
  annulla.onPress = [this] { close(); };
}

// --- on leaving the fields ---

Leave Rcliente::leaveName() {
  const std::string name = common::trim(card_.anagrafica.ragsoc.text());
  if (name.empty() || !readVoice(session_, name, 4100)) return Leave::go;
  desk().refuse("Già registrato");
  return Leave::stay;
}

Leave Rcliente::leaveVatNumber() {
  const std::string& number = card_.anagrafica.partitaiva.text();
  if (number.empty()) return Leave::go;
  warnOfSameVatNumber(session_, number, kCustomers);
  return ValidateVatNumber(session_, number) ? Leave::go : Leave::stay;
}

Leave Rcliente::leaveEmail() {
  const std::string& address = card_.anagrafica.email.text();
  if (!address.empty() && !emailIsRight(address)) desk().warn("L'e-mail non è corretta");
  return Leave::go;
}

// --- saving ---

void Rcliente::registerCustomer() {
  if (!hasName() || !hasVatCodes()) return;
  rec::pc& customer = session_.pc.A;
  customer = {};
  if (!card_.store(customer)) return;
  customer.tipo = kCustomers.tipo;
  customer.mastro = kCreditsMastro;
  customer.conto = kCustomersConto;
  customer.natura = "p";
  setGroupKeys(customer);
  if (addVoice(session_, drawVoiceNumber(session_)).empty()) return;
  card_.clear();
  card_.anagrafica.ragsoc.focus();
}

bool Rcliente::hasName() {
  if (!common::trim(card_.anagrafica.ragsoc.text()).empty()) return true;
  desk().refuse("Non è stata inserita la ragione sociale", card_.anagrafica.ragsoc);
  return false;
}

bool Rcliente::hasVatCodes() {
  VatPage& iva = card_.iva;
  if (iva.esente.on() && iva.codiceEsente.text().empty()) {
    desk().refuse("Non è stato inserito il codice di esenzione iva", iva.codiceEsente);
    return false;
  }
  if (iva.ridotta.on() && iva.codiceRidotta.text().empty()) {
    desk().refuse("Non è stato inserito il codice iva ridotta", iva.codiceRidotta);
    return false;
  }
  return true;
}

}  // namespace

std::unique_ptr<Form> makeRCLIENTE(Session& session) { return std::make_unique<Rcliente>(session); }

}  // namespace tarvex
