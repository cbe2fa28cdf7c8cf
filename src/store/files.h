// What the file systems ask of whoever makes files.
#pragma once

#include <string>

#include "store/record_store.h"

namespace store {

// Makes the name of a new file durable, too. Shares that cannot do it are passed over.
Code syncDirectoryOf(const std::string& path);

}  // namespace store
