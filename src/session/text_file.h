// The small text files of one line beside the archives (rr, www, BK.DAT) and the log. None of them is worth a
// box: a failure is told by the result, and most callers pass it over.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

// The first line without its end (LF or CR LF); empty for an empty file, nothing for one that cannot be read.
std::optional<std::string> firstLine(const std::string& path);

// Replaces the file by this one line as a whole: after a failure the old one still stands.
bool writeLine(const std::string& path, std::string_view line);

// Adds `text` at the end with one write, so that the entries of two stations do not mix.
bool appendText(const std::string& path, std::string_view text);

}  // namespace tarvex
