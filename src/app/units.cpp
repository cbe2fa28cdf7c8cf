#include "app/units.h"

#include "app/forms.h"
#include "chart/forms.h"
#include "duedates/forms.h"
#include "ledger/books/forms.h"
#include "ledger/forms.h"
#include "parameters/forms.h"
#include "parties/forms.h"
#include "session/forms.h"
#include "vat/forms.h"
#include "yearend/forms.h"

namespace tarvex {
namespace {

constexpr Unit kUnits[] = {
    {"AMC", makeAmc},
    {"ANNRIVA", makeAnnriva},
    {"APRIAZ", makeApriaz},
    {"BIL", makeBil},
    {"COPIAPC", makeCopiapc},
    {"DUPLICA", makeDuplica},
    {"Foglio", makeFoglio},
    {"LIQIVA", makeLiqiva},
    {"LIQIVA1", makeLiqiva1},
    {"LIQIVASR", makeLiqivasr},
    {"LISTAPC", makeListapc},
    {"MCFA", makeMcfa},
    {"MCFA2", makeMcfa2},
    {"MCFA3", makeMcfa3},
    {"MCIF", makeMcif},
    {"MCIF2", makeMcif2},
    {"MCIFAC", makeMcifac},
    {"MCMG", makeMcmg},
    {"MCMG2", makeMcmg2},
    {"MCMG3", makeMcmg3},
    {"MCPF", makeMcpf},
    {"MCPF2", makeMcpf2},
    {"MCPFAC", makeMcpfac},
    {"MCXX", makeMcxx},
    {"NUMERAZ", makeNumeraz},
    {"PARGES", makeParges},
    {"PASS", makePass},
    {"PASSW", makePassw},
    {"PROGRES", makeProgres},
    {"RCLIENT3", makeRclient3},
    {"RCLIENTE", makeRcliente},
    {"REGCRED", makeRegcred},
    {"REGDATI", makeRegdati},
    {"REGFACIL", makeRegfacil},
    {"REGPAG", makeRegpag},
    {"REGSCA", makeRegsca},
    {"RFORN", makeRforn},
    {"RFORN3", makeRforn3},
    {"RICO", makeRico},
    {"RIEPCORR", makeRiepcorr},
    {"RMIVA", makeRmiva},
    {"RPC", makeRpc},
    {"SCELTA", makeScelta},
    {"SPS", makeSps},
    {"SPSFORN", makeSpsforn},
    {"STEC", makeStec},
    {"STGC", makeStgc},
    {"STMC", makeStmc},
    {"STMC1", makeStmc1},
    {"STPC", makeStpc},
    {"STRIA", makeStria},
    {"STRIC", makeStric},
    {"STRIV", makeStriv},
    {"STSCAD", makeStscad},
    {"STSCHED", makeStsched},
    {"TROVA", makeTrova},
    {"VALL1", makeVall1},
    {"VALL2", makeVall2},
    {"VALL3", makeVall3},
    {"VARCLI", makeVarcli},
    {"VARFORN", makeVarforn},
    {"VARPC", makeVarpc},
    {"VARRIFP", makeVarrifp},
    {"VARSCA", makeVarsca},
    {"VERPN", makeVerpn},
    {"VISAGEN", makeVisagen},
    {"VISCLI", makeViscli},
    {"VISFORN", makeVisforn},
    {"VISPC", makeVispc},
    {"VISSCA", makeVissca},
    {"VIVA", makeViva},
    {"VMC", makeVmc},
    {"annsr", makeAnnsr},
    {"anpc", makeAnpc},
    {"cancell1", makeCancell1},
    {"cancella", makeCancella},
    {"mcca", makeMcca},
    {"mcca2", makeMcca2},
    {"mcca3", makeMcca3},
    {"mcco", makeMcco},
    {"mcco2", makeMcco2},
    {"mccv", makeMccv},
    {"mccv2", makeMccv2},
    {"mcfv", makeMcfv},
    {"mcfv2", makeMcfv2},
    {"quadra", makeQuadra},
    {"regxx", makeRegxx},
    {"rtiva", makeRtiva},
    {"varsi", makeVarsi},
    {"vec", makeVec},
    {"visched", makeVisched},
    {"visched1", makeVisched1},
    {"vistiva", makeVistiva},
};

}  // namespace

std::span<const Unit> units() { return kUnits; }

}  // namespace tarvex
