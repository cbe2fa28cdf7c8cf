// The forms of the due dates, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRegpag(Session& session);
std::unique_ptr<ui::Form> makeRegsca(Session& session);
std::unique_ptr<ui::Form> makeStscad(Session& session);
std::unique_ptr<ui::Form> makeVarsca(Session& session);
std::unique_ptr<ui::Form> makeVissca(Session& session);

}  // namespace tarvex
