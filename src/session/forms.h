// How the forms of this folder are made, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeScelta(Session& session);
std::unique_ptr<ui::Form> makeApriaz(Session& session);
std::unique_ptr<ui::Form> makePass(Session& session);  // for the company whose record stands in dataz.B

}  // namespace tarvex
