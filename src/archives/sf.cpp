#include "archives/sf.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::sf>{
    field("numero", &rec::sf::numero),
    field("datafatt", &rec::sf::datafatt),
    field("conto", &rec::sf::conto, {5}),
    field("importo", &rec::sf::importo),
    field("scadenza", &rec::sf::scadenza, {8}),
    field("pagamento", &rec::sf::pagamento),
    field("chiaveconto", &rec::sf::chiaveconto, {13}),
    field("tipo", &rec::sf::tipo),
    field("riservato9", &rec::sf::riservato9),
};
static_assert(formatOf(kFields<rec::sf>) == Layout<rec::sf>::format);

template struct Codec<rec::sf>;

}  // namespace archives
