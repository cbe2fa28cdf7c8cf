#include "archives/mc.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::mc>{
    field("datareg", &rec::mc::datareg, {8}),
    field("numdoc", &rec::mc::numdoc),
    field("datadoc", &rec::mc::datadoc),
    field("protocollo", &rec::mc::protocollo),
    field("conto", &rec::mc::conto),
    field("dare", &rec::mc::dare),
    field("avere", &rec::mc::avere),
    field("nummov", &rec::mc::nummov, {8}),
    field("descrizione", &rec::mc::descrizione),
    field("chiavecontodoc", &rec::mc::chiavecontodoc, {19}),
    field("chiavecontodata", &rec::mc::chiavecontodata, {13}),
    field("chiavedatadoc", &rec::mc::chiavedatadoc, {14}),
    field("causale", &rec::mc::causale),
    field("registro", &rec::mc::registro),
    field("daemissione", &rec::mc::daemissione),
    field("riservato", &rec::mc::riservato),
};
static_assert(formatOf(kFields<rec::mc>) == Layout<rec::mc>::format);

template struct Codec<rec::mc>;

}  // namespace archives
