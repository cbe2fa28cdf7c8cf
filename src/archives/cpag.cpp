#include "archives/cpag.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::cpag>{
    field("descrizione", &rec::cpag::descrizione, {40}),
    field("tipo", &rec::cpag::tipo),
    field("numrate", &rec::cpag::numrate),
    field("primarata", &rec::cpag::primarata),
    field("giorno", &rec::cpag::giorno),
    field("agosto", &rec::cpag::agosto),
    field("saltaagosto", &rec::cpag::saltaagosto),
};
static_assert(formatOf(kFields<rec::cpag>) == Layout<rec::cpag>::format);

template struct Codec<rec::cpag>;

}  // namespace archives
