#include "archives/fa.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::fa>{
    field("data", &rec::fa::data),
    field("cliente", &rec::fa::cliente, {5}),
    field("zona", &rec::fa::zona, {10}),
    field("provincia", &rec::fa::provincia, {2}),
    field("tipocliente", &rec::fa::tipocliente, {10}),
    field("importo", &rec::fa::importo),
    field("agente1", &rec::fa::agente1, {5}),
    field("agente2", &rec::fa::agente2, {5}),
    field("riservato", &rec::fa::riservato),
};
static_assert(formatOf(kFields<rec::fa>) == Layout<rec::fa>::format);

template struct Codec<rec::fa>;

}  // namespace archives
