// A line of commands as words, and whole numbers in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driver {

struct Words {
  std::vector<std::string> words;  // the command first; none for a blank line or a comment
  std::string_view rest;           // of the line, behind the words that were asked for
  std::string error;               // why the line cannot be read as words; empty when it can
};

// Words are parted by blanks; a word that begins with a double quote is a JSON string, any other stands
// for its bytes, whatever they are. Reads `most` words at the most and leaves the others in `rest`, which
// points into `line`.
Words readWords(std::string_view line, std::size_t most = std::string_view::npos);

// A whole number, as typed; nothing for any other text or one beyond int.
std::optional<int> wholeNumber(std::string_view text);

}  // namespace driver
