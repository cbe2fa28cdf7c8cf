// How the forms of this folder are made, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeQuadra(Session& session);

}  // namespace tarvex
