#include "archives/si.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::si>{
    field("saldo1", &rec::si::saldo1),           field("saldo2", &rec::si::saldo2),
    field("saldo3", &rec::si::saldo3),           field("saldo4", &rec::si::saldo4),
    field("saldo5", &rec::si::saldo5),           field("saldo6", &rec::si::saldo6),
    field("saldo7", &rec::si::saldo7),           field("saldo8", &rec::si::saldo8),
    field("saldo9", &rec::si::saldo9),           field("saldo10", &rec::si::saldo10),
    field("saldo11", &rec::si::saldo11),         field("saldo12", &rec::si::saldo12),
    field("creditoprec", &rec::si::creditoprec),
};
static_assert(formatOf(kFields<rec::si>) == Layout<rec::si>::format);

template struct Codec<rec::si>;

}  // namespace archives
