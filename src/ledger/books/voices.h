// The voices that a print of many cards goes through.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/session.h"

namespace tarvex {

enum class VoiceKind { sottoconti, customers, suppliers };

// Their codes: the sottoconti in the order of the chart, customers and suppliers by name. Nothing when the
// chart cannot be read, which has been reported.
std::optional<std::vector<std::string>> voicesOf(Session& session, VoiceKind kind);

}  // namespace tarvex
