// Names of voices, found whatever the case in which they are stored and typed. The indexes of `pc` order
// names by their bytes, so that "ROSSI" and "Rossi" lie far apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace tarvex {

// The names of one index of `pc` whose keys begin with `group`: customers are {58, "c"}, all voices {1, ""}.
struct NameRun {
  int index;
  std::string_view group;
};

inline constexpr std::size_t kNameWidth = 30;  // characters of a name

struct Spellings {
  std::vector<std::string>
      found;            // `typed` as stored, in key order: each begins the name of one voice or more
  std::string nearest;  // when none does: `typed` with as much of its start spelled as stored
};

// How the names of the run spell `typed`. Reads one or two records for each character and spelling.
Spellings spellingsOf(Session& session, NameRun run, std::string_view typed);

// These read a voice into session.pc.B; false when the run ends there. A failure is reported and ends it,
// too.
bool firstName(Session& session, NameRun run, std::string_view from);    // the first one at or behind `from`
bool nextName(Session& session, NameRun run);                            // behind the one read last
bool nameBefore(Session& session, NameRun run, std::string_view place);  // the last one before `place`
bool previousName(Session& session, NameRun run);                        // before the one read last

bool beginsWith(std::string_view name, std::string_view typed);  // the case apart

}  // namespace tarvex
