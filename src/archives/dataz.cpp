#include "archives/dataz.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::dataz>{
    field("ragsoc", &rec::dataz::ragsoc, {40}), field("indirizzo", &rec::dataz::indirizzo),
    field("citta", &rec::dataz::citta),         field("partitaiva", &rec::dataz::partitaiva),
    field("stato", &rec::dataz::stato),         field("stato2", &rec::dataz::stato2),
    field("password", &rec::dataz::password),
};
static_assert(formatOf(kFields<rec::dataz>) == Layout<rec::dataz>::format);

template struct Codec<rec::dataz>;

}  // namespace archives
