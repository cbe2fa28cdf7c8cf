#include "archives/ff.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::ff>{
    field("codice", &rec::ff::codice),
    field("riservato", &rec::ff::riservato),
    field("utilizzi", &rec::ff::utilizzi),
};
static_assert(formatOf(kFields<rec::ff>) == Layout<rec::ff>::format);

template struct Codec<rec::ff>;

}  // namespace archives
