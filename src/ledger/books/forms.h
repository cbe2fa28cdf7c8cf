// The forms of the journal's books, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeNumeraz(Session& session);
std::unique_ptr<ui::Form> makeProgres(Session& session);
std::unique_ptr<ui::Form> makeStec(Session& session);
std::unique_ptr<ui::Form> makeStgc(Session& session);
std::unique_ptr<ui::Form> makeStmc(Session& session);
std::unique_ptr<ui::Form> makeStmc1(Session& session);
std::unique_ptr<ui::Form> makeStsched(Session& session);
std::unique_ptr<ui::Form> makeVarrifp(Session& session);
std::unique_ptr<ui::Form> makeVec(Session& session);
std::unique_ptr<ui::Form> makeVerpn(Session& session);
std::unique_ptr<ui::Form> makeVisched(Session& session);
std::unique_ptr<ui::Form> makeVisched1(Session& session);

}  // namespace tarvex
