// Variazione scheda cliente, fornitore, agente.
#include "parties/forms.h"
#include "parties/variation.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeVarcli(Session& session) {
  return makeVariation(session, {"VARCLI", "Variazione scheda cliente", kCustomer});
}

std::unique_ptr<ui::Form> makeVarforn(Session& session) {
  const PartyKind& party = supplierOrAgent(session);
  return makeVariation(session, {"VARFORN", "Variazione scheda " + std::string(party.noun), party});
}

}  // namespace tarvex
