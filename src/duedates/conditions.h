// The payment conditions, cpag, shared by all companies.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/cpag.h"
#include "session/session.h"

namespace tarvex {

struct KeptCondition {
  std::string key;  // four digits
  rec::cpag condition;
};

// By its description, exactly; nothing when there is none of that name. A failure is reported.
std::optional<KeptCondition> readCondition(Session& session, std::string_view description);

// By description. What could not be read is reported and left out.
std::vector<KeptCondition> readConditions(Session& session);

// Adds it under the lowest key from "0001" to "2000" that is free. False when there is none, or after a
// failure that has been reported.
bool addCondition(Session& session, const rec::cpag& condition);

// Customers who still have it keep its name.
void removeCondition(Session& session, std::string_view key);

}  // namespace tarvex
