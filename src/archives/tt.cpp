#include "archives/tt.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::tt>{
    field("nummov", &rec::tt::nummov, {8}), field("voce", &rec::tt::voce),
    field("testo", &rec::tt::testo),        field("codice", &rec::tt::codice),
    field("importo", &rec::tt::importo),
};
static_assert(formatOf(kFields<rec::tt>) == Layout<rec::tt>::format);

template struct Codec<rec::tt>;

}  // namespace archives
