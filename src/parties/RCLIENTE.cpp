// Registrazione cliente: a new customer, from the menu or as a step of another screen.
#include "parties/forms.h"
#include "parties/registration.h"

namespace tarvex {

std::unique_ptr<ui::Form> makeRcliente(Session& session) {
  return makeRegistration(session, {"RCLIENTE", "Registrazione cliente", kCustomer});
}

std::unique_ptr<ui::Form> makeRclient3(Session& session) {
  return makeRegistration(session, {.unit = "RCLIENT3",
                                    .title = "Registrazione cliente",
                                    .party = kCustomer,
                                    .tellsName = true,
                                    .oneOnly = true});
}

}  // namespace tarvex
