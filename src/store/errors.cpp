#include "store/errors.h"

#include <cerrno>

namespace store {

Code codeOfErrno(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case ENOMEM:
      return kNoMemory;
    case EMFILE:
    case ENFILE:
      return kTooManyFiles;
    case ENOENT:
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOTDIR:
    case ESTALE:
    case ENOLCK:
      return kSystem;
    default:
      return kDisk;
  }
}

}  // namespace store
