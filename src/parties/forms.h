// The forms of this folder, for the table of units.
#pragma once

#include <memory>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRCLIENTE(Session& session);  // RCLIENTE, "Registrazione cliente"
std::unique_ptr<ui::Form> makeRCLIENT3(Session& session);  // RCLIENT3, the same as a step of another screen
std::unique_ptr<ui::Form> makeRFORN(
    Session& session);  // RFORN, "Registrazione scheda fornitore", "... agente"
std::unique_ptr<ui::Form> makeRFORN3(Session& session);  // RFORN3, the same as a step of another screen
std::unique_ptr<ui::Form> makeVARCLI(Session& session);  // VARCLI, "Variazione scheda cliente"
std::unique_ptr<ui::Form> makeVARFORN(
    Session& session);  // VARFORN, "Variazione scheda fornitore", "... agente"
std::unique_ptr<ui::Form> makeVISCLI(Session& session);   // VISCLI, "Scheda cliente"
std::unique_ptr<ui::Form> makeVISFORN(Session& session);  // VISFORN, "Scheda fornitore"
std::unique_ptr<ui::Form> makeVISAGEN(Session& session);  // VISAGEN, "Scheda agente"
std::unique_ptr<ui::Form> makeSPS(Session& session);      // SPS, "Stampa parametrica selettiva clienti"
std::unique_ptr<ui::Form> makeSPSFORN(Session& session);  // SPSFORN, "... fornitori", "... agenti"

}  // namespace tarvex
