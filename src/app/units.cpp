#include "app/units.h"

#include "session/forms.h"

namespace tarvex {
namespace {

constexpr Unit kUnits[] = {
    {"APRIAZ", makeApriaz},
    {"PASS", makePass},
    {"SCELTA", makeScelta},
};

}  // namespace

std::span<const Unit> units() { return kUnits; }

}  // namespace tarvex
