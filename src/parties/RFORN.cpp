// Registrazione scheda fornitore, or agente: from the menu or as a step of another screen.
#include "parties/forms.h"
#include "parties/registration.h"

namespace tarvex {
namespace {

std::unique_ptr<ui::Form> make(Session& session, std::string_view unit, bool oneOnly) {
  const PartyKind& party = supplierOrAgent(session);
  return makeRegistration(session, {.unit = unit,
                                    .title = "Registrazione scheda " + std::string(party.noun),
                                    .party = party,
                                    .tellsName = true,
                                    .oneOnly = oneOnly});
}

}  // namespace

std::unique_ptr<ui::Form> makeRforn(Session& session) { return make(session, "RFORN", false); }
std::unique_ptr<ui::Form> makeRforn3(Session& session) { return make(session, "RFORN3", true); }

}  // namespace tarvex
