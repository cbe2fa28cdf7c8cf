// The password of a company as its record keeps it: an Argon2id text, or the plain text of older data.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

enum class PasswordCheck {
  wrong,
  right,
  rightButPlain
};  // rightButPlain: kept as plain text, to be replaced

PasswordCheck checkPassword(std::string_view kept, std::string_view typed);

// The text to be kept; nothing when there is no memory for it. Takes some 50 ms and 64 MB, on purpose.
std::optional<std::string> keptPassword(std::string_view typed);

}  // namespace tarvex
