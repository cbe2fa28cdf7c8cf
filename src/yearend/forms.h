// The forms of the year's end, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeBil(Session& session);

}  // namespace tarvex
