// The screen on which customers, suppliers and agents are registered, one form for all kinds.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "parties/party.h"
#include "ui/form.h"

namespace tarvex {

struct RegistrationKind {
  std::string_view unit;
  std::string title;
  const PartyKind& party;
  bool tellsName = false;  // puts the name registered into session.LastRegisteredName
  bool oneOnly = false;    // closes behind the first; otherwise clears itself for the next one
};

std::unique_ptr<ui::Form> makeRegistration(Session& session, const RegistrationKind& kind);

}  // namespace tarvex
