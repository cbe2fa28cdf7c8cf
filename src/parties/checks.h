// The checks of a customer's or supplier's fields while they are typed.
#pragma once

#include <string_view>

#include "parties/party.h"
#include "session/session.h"

namespace tarvex {

// An "@", only one, with a "." behind it, the first of which does not stand directly behind it.
bool emailIsRight(std::string_view address);

// Looks at the first two voices with that VAT number and shows "Già registrato un altro ..." for each that is
// of the kind. A third is not looked for.
void warnOfSameVatNumber(Session& session, std::string_view number, const PartyKind& kind);

}  // namespace tarvex
