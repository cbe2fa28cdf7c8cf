// The question before archives are removed.
#pragma once

#include "session/session.h"

namespace tarvex {

// Runs cancell1; true for "SI".
bool confirmRemoval(Session& session);

}  // namespace tarvex
