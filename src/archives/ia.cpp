#include "archives/ia.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::ia>{
    field("mese", &rec::ia::mese),
    field("protocollo", &rec::ia::protocollo, {5}),
    field("numero", &rec::ia::numero),
    field("datadoc", &rec::ia::datadoc),
    field("conto", &rec::ia::conto, {5}),
    field("imponibile", &rec::ia::imponibile),
    field("codiva", &rec::ia::codiva),
    field("aliquota", &rec::ia::aliquota),
    field("imposta", &rec::ia::imposta),
    field("registro", &rec::ia::registro),
    field("chiavereg", &rec::ia::chiavereg, {6}),
    field("datareg", &rec::ia::datareg),
    field("riservato", &rec::ia::riservato),
};
static_assert(formatOf(kFields<rec::ia>) == Layout<rec::ia>::format);

template struct Codec<rec::ia>;

}  // namespace archives
