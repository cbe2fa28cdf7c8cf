#include "archives/pr.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::pr>{
    field("valore", &rec::pr::valore),
    field("testo", &rec::pr::testo),
};
static_assert(formatOf(kFields<rec::pr>) == Layout<rec::pr>::format);

template struct Codec<rec::pr>;

}  // namespace archives
