#include "app/units.h"

#include "chart/forms.h"
#include "ledger/forms.h"
#include "parties/forms.h"
#include "session/forms.h"
#include "vat/forms.h"

namespace tarvex {
namespace {

constexpr Unit kUnits[] = {
    {"APRIAZ", makeApriaz},
    {"PASS", makePass},
    {"RCLIENTE", makeRCLIENTE},
    {"RPC", makeRPC},
    {"SCELTA", makeScelta},
    {"STRIA", makeStria},
    {"STRIC", makeStric},
    {"STRIV", makeStriv},
    {"mcfv", makeMcfv},
    {"rtiva", makeRtiva},
    {"vistiva", makeVistiva},
};

}  // namespace

std::span<const Unit> units() { return kUnits; }

}  // namespace tarvex
