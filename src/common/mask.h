// The one picture function of the screens and the prints.
#pragma once

#include <string>
#include <string_view>

namespace common {

// `value` in a picture of `#` (digit, nothing when it is not needed), `0` (digit always), one `.` for the
// decimals and `,` for the thousands, as "###,###,##0.00", "######0.00", "0#" or "#0.00". Behind a `0` each
// `#` of the integer part is a `0`, before a `0` each one of the decimals.
// The separators come out Italian: point for thousands, comma for decimals. Half cents go away from
// zero; a negative number has "-" in front, unless all its digits shown are 0; "?" stands for NaN and
// infinity. The result is as long as the digits ask: prints pad it with common::fit.
std::string format(std::string_view picture, double value);

}  // namespace common
