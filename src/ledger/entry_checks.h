// The checks that every entry screen makes: its dates, its balance.
#pragma once

#include <string_view>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

// On leaving the date of registration, which must be a day of the year of work.
void checkRegistrationDate(Session& session, ui::Field& field);

// On leaving any other date, which may be empty.
void checkDate(Session& session, ui::Field& field);

// Both dates once more, since a screen may be registered without passing by them. An empty date of the
// document takes that of the registration, which may not come before it. False when the user has been told.
bool datesInOrder(Session& session, ui::Field& registration, ui::Field& document);

// False when something is over, which the user has been told in `picture`.
bool balances(ui::Desk& desk, double difference, std::string_view picture);

// Shows the refusal with the focus on the field; always false, so that a check returns it.
bool refuse(ui::Field& field, std::string_view text);

}  // namespace tarvex
