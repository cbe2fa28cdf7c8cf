#include "store/embedded/family.h"

#include <fcntl.h>
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

Code syncDirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string directory = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const int descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return codeOfErrno(errno);
  const Code result = ::fsync(descriptor) == 0 ? kOk : codeOfErrno(errno);
  ::close(descriptor);
  return result;
}

}  // namespace store::embedded
