// The forms of the journal.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeMcfv(Session& session);

}  // namespace tarvex
