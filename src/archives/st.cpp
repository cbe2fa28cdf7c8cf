#include "archives/st.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::st>{
    field("numero", &rec::st::numero),          field("datafatt", &rec::st::datafatt),
    field("conto", &rec::st::conto, {5}),       field("importo", &rec::st::importo),
    field("scadenza", &rec::st::scadenza, {8}), field("riservato6", &rec::st::riservato6),
    field("emessa", &rec::st::emessa),          field("riservato8", &rec::st::riservato8),
};
static_assert(formatOf(kFields<rec::st>) == Layout<rec::st>::format);

template struct Codec<rec::st>;

}  // namespace archives
