// What the file systems ask of whoever makes files.
#pragma once

#include <sys/types.h>

#include <string>

#include "store/record_store.h"

namespace store {

// Who may read what is made: its user alone, or the group of all the users of a share, whose directories hand
// the group on to what is made in them.
struct Permissions {
  mode_t directory, file;
};
inline constexpr Permissions kOwn{0700, 0600}, kShared{02770, 0660};

// Makes the directory and those above it that are missing. kOk as well when it is there already.
Code makeDirectory(const std::string& path, const Permissions& permissions);

// Gives a file that was just made its permissions, which the umask may have cut. A share that keeps none is
// passed over.
Code setPermissions(int descriptor, mode_t permissions);

// Makes the name of a new file durable, too. Shares that cannot do it are passed over.
Code syncDirectoryOf(const std::string& path);

}  // namespace store
