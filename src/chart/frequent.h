// The sottoconti that are used most, a list that the user keeps: archive ff.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/session.h"

namespace tarvex {

struct FrequentVoice {
  std::string code, name;
  double uses = 0;  // how often the list was used to pick it
};

// By code; a voice that is gone has no name. Makes the archive where there is none yet. Nothing when it
// cannot be read, which has been reported.
std::optional<std::vector<FrequentVoice>> readFrequent(Session& session);

// Adds a code with no uses; one that is there already stays as it is.
void addFrequent(Session& session, const std::string& code);
void removeFrequent(Session& session, const std::string& code);

// Runs RICERCAF and counts the use; the description chosen, empty when none was.
std::string pickFrequent(Session& session);

}  // namespace tarvex
