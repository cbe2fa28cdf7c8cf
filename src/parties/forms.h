// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRCLIENTE(Session& session);  // RCLIENTE, "Registrazione cliente"

}  // namespace tarvex
