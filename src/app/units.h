// Every form of the program in one explicit table.
#pragma once

#include <span>

#include "session/session.h"

namespace tarvex {

std::span<const Unit> units();

}  // namespace tarvex
