// How a scenario says what an answer must hold.
//
// An object asks for its own members, whatever else stands there; an array for exactly its elements, each in
// the same way; anything else for the same value. "<any>" takes every value; as the last element of an array
// "<rest>" takes all that follows, or nothing.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace test {

// Empty when `answer` holds what is `wanted`; otherwise where it does not, as a path, and what stands there.
std::string mismatch(const nlohmann::json& answer, const nlohmann::json& wanted);

}  // namespace test
