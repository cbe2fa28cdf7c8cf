#include "store/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "store/errors.h"

namespace store {

Code syncDirectoryOf(const std::string& path) {
  const std::filesystem::path parent = std::filesystem::path(path).parent_path();
  const int descriptor = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return codeOfErrno(errno);
  const int error = ::fsync(descriptor) < 0 ? errno : 0;
  ::close(descriptor);
  return error == 0 || error == EINVAL ? kOk : codeOfErrno(error);  // EINVAL: a share that cannot do it
}

}  // namespace store
