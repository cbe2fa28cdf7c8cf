// The currency type: an amount as a whole number of ten-thousandths. Where an amount is to be cut, doubles
// would lose a cent to a tail beyond the tenth decimal.
#pragma once

#include <cstdint>

namespace common {

using Currency = std::int64_t;  // scaled by 10,000

Currency toCurrency(double amount);  // a half to the even one
double toDouble(Currency amount);

// One of `parts` equal instalments of an amount, cut to whole cents: floor(amount / parts * 100) / 100, the
// product and the floor in the currency type. 100,00 in 3 is 33,33. `parts` is at least 1.
double cutInstalment(double amount, int parts);

}  // namespace common
