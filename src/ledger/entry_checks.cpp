#include "ledger/entry_checks.h"

#include "common/date.h"
#include "common/mask.h"
#include "session/checks.h"

namespace tarvex {

using ui::Leave;

void checkRegistrationDate(Session& session, ui::Field& field) {
  field.onLeave = [&session, &field] {
    std::string date = field.text();
    return validateRegistrationDate(session, date) ? Leave::go : Leave::stay;
  };
}

void checkDate(Session& session, ui::Field& field) {
  field.onLeave = [&session, &field] {
    if (field.empty()) return Leave::go;
    std::string date = field.text();
    return ValidateDate(session, date) ? Leave::go : Leave::stay;
  };
}

bool datesInOrder(Session& session, ui::Field& registration, ui::Field& document) {
  std::string date = registration.text();
  if (!validateRegistrationDate(session, date)) return registration.focus(), false;
  if (document.empty()) document.setText(registration.text());
  date = document.text();
  if (!ValidateDate(session, date)) return document.focus(), false;
  if (common::DateToKey(document.text()) <= common::DateToKey(registration.text())) return true;
  return refuse(registration, "La data di registrazione è precedente alla data del documento");
}

bool balances(ui::Desk& desk, double difference, std::string_view picture) {
  if (difference == 0) return true;
  desk.beep();
  desk.show({common::format(picture, difference), "SBILANCIO", ui::Ask::ok, ui::Icon::warning});
  return false;
}

bool refuse(ui::Field& field, std::string_view text) {
  field.form().desk().refuse(std::string(text), field);
  return false;
}

}  // namespace tarvex
