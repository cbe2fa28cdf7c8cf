#include "session/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>

#include "store/files.h"

namespace tarvex {
namespace {

// Names of customers stand in the log: it is for those alone who may write in its directory.
mode_t permissionsIn(const std::string& directory) {
  struct stat info {};
  const bool ofGroup = ::stat(directory.empty() ? "." : directory.c_str(), &info) == 0 &&
                       (info.st_mode & S_ISGID) != 0 && (info.st_mode & S_IWGRP) != 0;
  return (ofGroup ? store::kShared : store::kOwn).file;
}

bool write(const std::string& path, int flags, std::string_view text) {
  const mode_t permissions = permissionsIn(path.substr(0, path.rfind('/') + 1));
  int file = ::open(path.c_str(), flags | O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
  if (file >= 0) store::setPermissions(file, permissions);
  if (file < 0 && errno == EEXIST) file = ::open(path.c_str(), flags | O_WRONLY | O_CLOEXEC);
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
