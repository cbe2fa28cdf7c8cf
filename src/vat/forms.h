// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRtiva(Session& session);    // rtiva, "Registrazione tabella Iva"
std::unique_ptr<ui::Form> makeVistiva(Session& session);  // vistiva, "Tabella Iva"
std::unique_ptr<ui::Form> makeStria(Session& session);    // STRIA, "Stampa registro iva acquisti"
std::unique_ptr<ui::Form> makeStric(Session& session);    // STRIC, "Stampa registro iva corrispettivi"
std::unique_ptr<ui::Form> makeStriv(Session& session);    // STRIV, "Stampa registro iva vendite"

}  // namespace tarvex
