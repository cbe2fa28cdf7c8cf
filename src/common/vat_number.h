// The check digit of a partita iva. The message stands in session/checks.h.
#pragma once

#include <string_view>

namespace common {

// Eleven digits whose last one checks the others, "00000000000" left out; an empty text is right.
bool vatNumberIsRight(std::string_view number);

}  // namespace common
