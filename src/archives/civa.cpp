#include "archives/civa.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::civa>{
    field("codice", &rec::civa::codice, {5}),
    field("aliquota", &rec::civa::aliquota),
    field("indetraibile", &rec::civa::indetraibile),
    field("descrizione", &rec::civa::descrizione),
};
static_assert(formatOf(kFields<rec::civa>) == Layout<rec::civa>::format);

template struct Codec<rec::civa>;

}  // namespace archives
