#include "store/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "store/errors.h"

namespace store {
namespace {

bool keepsNone(int error) { return error == EPERM || error == ENOTSUP; }

}  // namespace

Code makeDirectory(const std::string& path, const Permissions& permissions) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::is_directory(path, error)) return kOk;
  const fs::path parent = fs::path(path).parent_path();
  if (!parent.empty() && parent != fs::path(path)) {
    if (const Code code = makeDirectory(parent.string(), permissions)) return code;
  }
  if (::mkdir(path.c_str(), permissions.directory) != 0) {
    if (errno != EEXIST) return codeOfErrno(errno);
    return fs::is_directory(path, error) ? kOk : kSystem;  // by now, or "a/" with its parent "a"
  }
  return ::chmod(path.c_str(), permissions.directory) == 0 || keepsNone(errno) ? kOk : codeOfErrno(errno);
}

Code setPermissions(int descriptor, mode_t permissions) {
  return ::fchmod(descriptor, permissions) == 0 || keepsNone(errno) ? kOk : codeOfErrno(errno);
}

Code syncDirectoryOf(const std::string& path) {
  const std::filesystem::path parent = std::filesystem::path(path).parent_path();
  const int descriptor = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return codeOfErrno(errno);
  const int error = ::fsync(descriptor) < 0 ? errno : 0;
  ::close(descriptor);
  return error == 0 || error == EINVAL ? kOk : codeOfErrno(error);  // EINVAL: a share that cannot do it
}

}  // namespace store
