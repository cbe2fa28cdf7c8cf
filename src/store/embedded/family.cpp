#include "store/embedded/family.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <stdexcept>

#include "store/errors.h"
#include "store/format.h"

namespace store::embedded {
namespace {

bool isFile(const std::string& path, off_t atLeast) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && info.st_size >= atLeast;
}

}  // namespace

bool Family::isWhole() const { return isFile(descriptor, 1) && isFile(database, 0) && isFile(journal, 0); }

Code Family::remove() const {
  bool any = false;
  for (const std::string& path : {descriptor, database, journal, shared(), fresh()}) {
    if (::unlink(path.c_str()) == 0) {
      any = true;
    } else if (errno != ENOENT) {
      return codeOfErrno(errno);
    }
  }
  return any ? kOk : kSystem;
}

std::string textOf(const Descriptor& descriptor) {
  return "Archivio, non modificare\n" + std::to_string(descriptor.keyLength) + '\n' + descriptor.format +
         '\n';
}

bool readDescriptor(std::string_view text, Descriptor& descriptor) {
  const std::size_t first = text.find('\n'), second = text.find('\n', first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) return false;
  const std::string_view length = text.substr(first + 1, second - first - 1);
  const auto [end, error] =
      std::from_chars(length.data(), length.data() + length.size(), descriptor.keyLength);
  if (error != std::errc() || end != length.data() + length.size()) return false;
  descriptor.format = text.substr(second + 1, text.find('\n', second + 1) - second - 1);
  // Each byte counts: what reads a number out of a damaged line must not pass.
  if (text != textOf(descriptor)) return false;
  try {
    parseFormat(descriptor.format);
    return true;
  } catch (const std::invalid_argument&) {
    return false;
  }
}

}  // namespace store::embedded
