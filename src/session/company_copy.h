// Master data of the open company, copied into a year of another one.
#pragma once

#include <string>
#include <string_view>

#include "session/session.h"

namespace tarvex {

struct CopyWish {
  bool customers = false, suppliers = false, agents = false, chart = false;
  bool articles = false, billsOfMaterials = false;
  bool anyVoices() const { return customers || suppliers || agents || chart; }
};

enum class CopyResult {
  done,
  notThere,  // that year of that company does not open
  refused,   // the same year of the same company; or voices into one that has drawn numbers of its own
  failed     // reported already; nothing was written
};

// One group of the target's company: voices of the kinds wished with all their fields, then its counter
// "conto" as here; articles with their progressive quantities and values at 0, then "magaz"; `pf` and `cp`.
// What stands there already under the same key is left as it is. Locks the target's "conto" and "magaz".
CopyResult copyMasterData(Session& session, std::string_view code, std::string_view year,
                          const CopyWish& wish);

}  // namespace tarvex
