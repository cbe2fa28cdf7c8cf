// The field checks that show a box of their own. Each tells whether the text is right.
#pragma once

#include <string>
#include <string_view>

#include "session/session.h"

namespace tarvex {

// A date dd/mm/yyyy in WorkYear; otherwise a beep and "La data inserita non è valida". A blank mask becomes
// empty, and is refused too: callers that allow it test it first.
bool ValidateWorkDate(Session& session, std::string& date);

// The same for any date of 1900 to 2099.
bool ValidateDate(Session& session, std::string& date);

// The date of registration of an entry: ValidateDate, then its year against WorkYear ("L'anno inserito non
// corrisponde all'anno di lavoro", title the product's name).
bool validateRegistrationDate(Session& session, std::string& date);

// The day that a period of the year ends with unless told: today, or the year's last day when today is in
// another.
std::string lastDayShown(const Session& session);

// Beep and "La partita iva inserita non è corretta" when the check digit fails.
bool ValidateVatNumber(Session& session, std::string_view number);

// Writes "F5 ricerca facilitata" in panel 2 of the status bar.
void SetFieldHint(Session& session);

// A run-time error that ends its operation, and never the program: a critical box.
void runtimeError(Session& session, std::string text);

inline constexpr std::string_view kProduct = "Tarvex";
inline constexpr std::string_view kSearchHint = "F5 ricerca facilitata";

}  // namespace tarvex
