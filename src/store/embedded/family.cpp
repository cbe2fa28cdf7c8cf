#include "store/embedded/family.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "store/errors.h"

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
  for (const std::string& path : {descriptor, database, journal, shared()}) {
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

}  // namespace store::embedded
