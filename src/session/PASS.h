// The question for a company's password.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"

namespace tarvex {

// Runs PASS; what was typed when it is the password kept (session/password.h), nothing when the user gave up
// or typed another.
std::optional<std::string> askPassword(Session& session, std::string_view kept);

}  // namespace tarvex
