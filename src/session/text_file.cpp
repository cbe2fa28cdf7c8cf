#include "session/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

namespace tarvex {
namespace {

constexpr mode_t kMode = 0600;  // names of customers stand in the log

bool write(const std::string& path, int flags, std::string_view text) {
  const int file = ::open(path.c_str(), flags | O_WRONLY | O_CREAT | O_CLOEXEC, kMode);
  if (file < 0) return false;
  const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  return (::close(file) == 0) && written;
}

}  // namespace

std::optional<std::string> firstLine(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string line;
  std::getline(file, line);
  if (file.bad()) return std::nullopt;  // a directory opens, too
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

bool writeLine(const std::string& path, std::string_view line) {
  const std::string beside = path + ".nuovo";
  if (!write(beside, O_TRUNC, std::string(line) + "\n")) {
    std::remove(beside.c_str());
    return false;
  }
  return std::rename(beside.c_str(), path.c_str()) == 0;
}

bool appendText(const std::string& path, std::string_view text) { return write(path, O_APPEND, text); }

}  // namespace tarvex
