// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRtiva(Session& session);     // rtiva, "Registrazione tabella Iva"
std::unique_ptr<ui::Form> makeVistiva(Session& session);   // vistiva, "Tabella Iva"
std::unique_ptr<ui::Form> makeLiqiva(Session& session);    // LIQIVA, "Liquidazione Iva"
std::unique_ptr<ui::Form> makeLiqiva1(Session& session);   // LIQIVA1, "Liquidazione Iva annuale"
std::unique_ptr<ui::Form> makeLiqivasr(Session& session);  // LIQIVASR, "Liquidazione iva singolo registro"
std::unique_ptr<ui::Form> makeRegcred(
    Session& session);  // REGCRED, "Registrazione credito Iva anno precedente"
std::unique_ptr<ui::Form> makeRiepcorr(Session& session);  // RIEPCORR, "Riepilogo iva corrispettivi"
std::unique_ptr<ui::Form> makeStria(Session& session);     // STRIA, "Stampa registro iva acquisti"
std::unique_ptr<ui::Form> makeStric(Session& session);     // STRIC, "Stampa registro iva corrispettivi"
std::unique_ptr<ui::Form> makeStriv(Session& session);     // STRIV, "Stampa registro iva vendite"
std::unique_ptr<ui::Form> makeViva(Session& session);      // VIVA, "Situazione Iva"
std::unique_ptr<ui::Form> makeVarsi(Session& session);     // varsi, "Variazione saldo liquidazione iva"

}  // namespace tarvex
