// The chart that a new company may begin with, beside the predefined accounts.
#pragma once

#include "session/session.h"

namespace tarvex {

// Whether the program came with one (piano_conti.csv).
bool hasStarterChart(const Session& session);

// Adds it to the open company as one group: each voice under the next number, "conto" at the last one. A
// voice whose name is there already is passed over. Locks "conto". False after a failure, which has been
// reported.
bool addStarterChart(Session& session);

}  // namespace tarvex
