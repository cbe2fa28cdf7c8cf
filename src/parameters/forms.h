// The forms of the parameters, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeParges(Session& session);

}  // namespace tarvex
