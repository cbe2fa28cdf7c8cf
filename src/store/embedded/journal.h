// The two ways in which an archive keeps a change safe until its database holds it. The database's header
// tells which one is in use.
#pragma once

#include <string>

#include "store/record_store.h"

namespace store::embedded {

enum class Journal : unsigned char {
  rollback = 1,  // what a change overwrites is kept first: for directories of several machines
  ahead = 2      // changes are appended and written back later: faster, but all stations share memory
};

// Both may be asked while the archive is open in this process. kDisk for a header that is none.
Code readJournal(const std::string& database, Journal& journal);
// Only with nobody else at the archive, its database settled and its journal empty; durable.
Code writeJournal(const std::string& database, Journal journal);

// Whether the file lies on another machine, or may do so.
bool isOnNetwork(const std::string& path);

}  // namespace store::embedded
