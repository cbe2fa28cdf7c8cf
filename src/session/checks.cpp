#include "session/checks.h"

#include <utility>

#include "common/date.h"
#include "common/vat_number.h"
#include "ui/desk.h"

namespace tarvex {
namespace {

bool refuseDate(Session& session) {
  session.desk().refuse("La data inserita non è valida");
  return false;
}

}  // namespace

bool ValidateWorkDate(Session& session, std::string& date) {
  common::clearBlankDate(date);
  return common::isDateOf(date, session.WorkYear) || refuseDate(session);
}

bool ValidateDate(Session& session, std::string& date) {
  common::clearBlankDate(date);
  return common::isDate(date) || refuseDate(session);
}

bool validateRegistrationDate(Session& session, std::string& date) {
  if (!ValidateDate(session, date)) return false;
  if (common::isDateOf(date, session.WorkYear)) return true;
  session.desk().beep();
  session.desk().show({"L'anno inserito non corrisponde all'anno di lavoro", std::string(kProduct),
                       ui::Ask::ok, ui::Icon::warning});
  return false;
}

std::string lastDayShown(const Session& session) {
  return common::isDateOf(session.TodayText, session.WorkYear) ? session.TodayText
                                                               : "31/12/" + session.WorkYear;
}

bool ValidateVatNumber(Session& session, std::string_view number) {
  if (common::vatNumberIsRight(number)) return true;
  session.desk().refuse("La partita iva inserita non è corretta");
  return false;
}

void runtimeError(Session& session, std::string text) {
  session.desk().show({std::move(text), std::string(kProduct), ui::Ask::ok, ui::Icon::critical});
}

void SetFieldHint(Session& session) { session.desk().status(2, kSearchHint); }

}  // namespace tarvex
