// Registrazione movimento generico, its revision, the same in Lire, and Registrazione causale automatizzata.
#include "archives/ax.h"
#include "ledger/forms.h"
#include "ledger/movement_form.h"

namespace tarvex {
namespace {

constexpr MovementKind kMovement{"MCMG", "Registrazione movimento generico"};
constexpr MovementKind kRevised{.unit = "MCMG2", .title = "Revisione movimento generico", .revision = true};
constexpr MovementKind kInLire{
    .unit = "MCMG3", .title = "Registrazione movimento generico in Lire", .lire = true};
constexpr MovementKind kAutomated{.unit = "MCXX",
                                  .title = "Registrazione causale automatizzata",
                                  .rows = rec::ax::kRows,
                                  .pages = 1,
                                  .automated = true};

}  // namespace

std::unique_ptr<ui::Form> makeMcmg(Session& session) { return makeMovementForm(session, kMovement); }
std::unique_ptr<ui::Form> makeMcmg2(Session& session) { return makeMovementForm(session, kRevised); }
std::unique_ptr<ui::Form> makeMcmg3(Session& session) { return makeMovementForm(session, kInLire); }
std::unique_ptr<ui::Form> makeMcxx(Session& session) { return makeMovementForm(session, kAutomated); }

}  // namespace tarvex
