// How the forms of this folder are made, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeApriaz(Session& session);
std::unique_ptr<ui::Form> makeCancell1(Session& session);
std::unique_ptr<ui::Form> makeCancella(Session& session);
std::unique_ptr<ui::Form> makeCopiapc(Session& session);
std::unique_ptr<ui::Form> makeDuplica(Session& session);
std::unique_ptr<ui::Form> makeRegdati(Session& session);
std::unique_ptr<ui::Form> makeScelta(Session& session);
std::unique_ptr<ui::Form> makePass(Session& session);  // for the company whose record stands in dataz.B
std::unique_ptr<ui::Form> makeVall1(Session& session);
std::unique_ptr<ui::Form> makeVall2(Session& session);
std::unique_ptr<ui::Form> makeVall3(Session& session);
std::unique_ptr<ui::Form> makeFoglio(Session& session);
std::unique_ptr<ui::Form> makePassw(Session& session);

}  // namespace tarvex
