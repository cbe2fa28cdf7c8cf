#include "archives/ic.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::ic>{
    field("mese", &rec::ic::mese),
    field("numero", &rec::ic::numero, {5}),
    field("datareg", &rec::ic::datareg, {8}),
    field("imponibile", &rec::ic::imponibile),
    field("codiva", &rec::ic::codiva),
    field("aliquota", &rec::ic::aliquota),
    field("imposta", &rec::ic::imposta),
    field("riservato8", &rec::ic::riservato8),
    field("registro", &rec::ic::registro),
    field("chiavereg", &rec::ic::chiavereg, {6}),
    field("riservato11", &rec::ic::riservato11),
    field("riservato12", &rec::ic::riservato12),
};
static_assert(formatOf(kFields<rec::ic>) == Layout<rec::ic>::format);

template struct Codec<rec::ic>;

}  // namespace archives
