// The checks of a customer's or supplier's fields while they are typed.
#pragma once

#include <string_view>

#include "session/session.h"

namespace tarvex {

// An "@", only one, with a "." behind it, the first of which does not stand directly behind it.
bool emailIsRight(std::string_view address);

// The parties among whom a VAT number is compared.
struct PartyKind {
  std::string_view tipo;  // "c", "f"
  std::string_view noun;  // in the messages: "cliente", "fornitore"
};

// Looks at the first two voices with that VAT number and shows "Già registrato un altro ..." for each that is
// of the kind. A third is not looked for.
void warnOfSameVatNumber(Session& session, std::string_view number, const PartyKind& kind);

}  // namespace tarvex
