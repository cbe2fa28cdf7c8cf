// What a definitive print leaves of itself: the last month printed of each register.
#pragma once

#include <string_view>

#include "session/session.h"
#include "vat/register.h"

namespace tarvex {

// The month, 1 to 12, that register `registro` ("1" to "9") reaches to; 0 when none was printed, when the
// kind has no definitive print, or when `pr` cannot be read, which has been reported.
int printedMonth(Session& session, const RegisterKind& kind, std::string_view registro);

// Keeps `month` as the last one printed, under the lock of the counter's record, which the stations share.
void keepPrintedMonth(Session& session, const RegisterKind& kind, std::string_view registro, int month);

}  // namespace tarvex
