// The words of a failed archive operation, as the failure boxes and the archive log have them.
#pragma once

#include "store/record_store.h"

namespace store {

// `archive` outside 1 to 36 gives an empty text. Numbers have one blank in front, as numberText writes them.
ArchiveFailure describeFailure(Code code, Operation operation, int archive, int position);

}  // namespace store
