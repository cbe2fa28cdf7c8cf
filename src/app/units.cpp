#include "app/units.h"

#include "chart/forms.h"
#include "ledger/forms.h"
#include "session/forms.h"

namespace tarvex {
namespace {

constexpr Unit kUnits[] = {
    {"APRIAZ", makeApriaz},
    {"PASS", makePass},
    {"RPC", makeRPC},
    {"SCELTA", makeScelta},
    {"mcfv", makeMcfv},
};

}  // namespace

std::span<const Unit> units() { return kUnits; }

}  // namespace tarvex
