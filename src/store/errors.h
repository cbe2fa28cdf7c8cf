// The result code of a failure of the operating system.
#pragma once

#include "store/record_store.h"

namespace store {

// ENOSPC, EDQUOT, EFBIG: kDiskFull; ENOMEM: kNoMemory; EMFILE, ENFILE: kTooManyFiles; ENOENT, EACCES, EPERM,
// EROFS, ENOTDIR, ESTALE, ENOLCK: kSystem; all others: kDisk. Never kNotFound or kExists: a scan would take
// them for its end.
Code codeOfErrno(int error);

}  // namespace store
