// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeAnpc(Session& session);
std::unique_ptr<ui::Form> makeListapc(Session& session);
std::unique_ptr<ui::Form> makeRpc(Session& session);
std::unique_ptr<ui::Form> makeRegfacil(Session& session);
std::unique_ptr<ui::Form> makeStpc(Session& session);
std::unique_ptr<ui::Form> makeTrova(Session& session);
std::unique_ptr<ui::Form> makeVarpc(Session& session);
std::unique_ptr<ui::Form> makeVispc(Session& session);

}  // namespace tarvex
