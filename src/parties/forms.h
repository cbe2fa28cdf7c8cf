// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRcliente(Session& session);  // RCLIENTE, "Registrazione cliente"
std::unique_ptr<ui::Form> makeRclient3(Session& session);  // RCLIENT3, the same as a step of another screen
std::unique_ptr<ui::Form> makeRforn(
    Session& session);  // RFORN, "Registrazione scheda fornitore", "... agente"
std::unique_ptr<ui::Form> makeRforn3(Session& session);  // RFORN3, the same as a step of another screen
std::unique_ptr<ui::Form> makeVarcli(Session& session);  // VARCLI, "Variazione scheda cliente"
std::unique_ptr<ui::Form> makeVarforn(
    Session& session);  // VARFORN, "Variazione scheda fornitore", "... agente"
std::unique_ptr<ui::Form> makeViscli(Session& session);   // VISCLI, "Scheda cliente"
std::unique_ptr<ui::Form> makeVisforn(Session& session);  // VISFORN, "Scheda fornitore"
std::unique_ptr<ui::Form> makeVisagen(Session& session);  // VISAGEN, "Scheda agente"
std::unique_ptr<ui::Form> makeSps(Session& session);      // SPS, "Stampa parametrica selettiva clienti"
std::unique_ptr<ui::Form> makeSpsforn(Session& session);  // SPSFORN, "... fornitori", "... agenti"

}  // namespace tarvex
