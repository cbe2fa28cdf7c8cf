#include "archives/sd.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::sd>{
    field("numero", &rec::sd::numero),
    field("datafatt", &rec::sd::datafatt),
    field("conto", &rec::sd::conto, {5}),
    field("importo", &rec::sd::importo),
    field("scadenza", &rec::sd::scadenza, {8}),
    field("pagamento", &rec::sd::pagamento),
    field("chiaveconto", &rec::sd::chiaveconto, {13}),
    field("riservato8", &rec::sd::riservato8),
    field("riservato9", &rec::sd::riservato9),
    field("riservato10", &rec::sd::riservato10),
    field("riservato11", &rec::sd::riservato11),
    field("riservato12", &rec::sd::riservato12),
    field("riservato13", &rec::sd::riservato13),
};
static_assert(formatOf(kFields<rec::sd>) == Layout<rec::sd>::format);

template struct Codec<rec::sd>;

}  // namespace archives
