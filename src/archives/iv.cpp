#include "archives/iv.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::iv>{
    field("mese", &rec::iv::mese),
    field("numero", &rec::iv::numero, {5}),
    field("datadoc", &rec::iv::datadoc),
    field("conto", &rec::iv::conto, {5}),
    field("imponibile", &rec::iv::imponibile),
    field("codiva", &rec::iv::codiva),
    field("aliquota", &rec::iv::aliquota),
    field("imposta", &rec::iv::imposta),
    field("registro", &rec::iv::registro),
    field("chiavereg", &rec::iv::chiavereg, {6}),
    field("datareg", &rec::iv::datareg),
};
static_assert(formatOf(kFields<rec::iv>) == Layout<rec::iv>::format);

template struct Codec<rec::iv>;

}  // namespace archives
