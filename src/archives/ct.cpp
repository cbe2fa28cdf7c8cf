#include "archives/ct.h"

#include "archives/codec.h"

namespace archives {

template <>
constexpr std::tuple kFields<rec::ct>{
    field("cheflag", &rec::ct::cheflag),       field("chpflag", &rec::ct::chpflag),
    field("bapflag", &rec::ct::bapflag),       field("trapaflag", &rec::ct::trapaflag),
    field("tradocflag", &rec::ct::tradocflag), field("bapdata", &rec::ct::bapdata),
};
static_assert(formatOf(kFields<rec::ct>) == Layout<rec::ct>::format);

template struct Codec<rec::ct>;

}  // namespace archives
