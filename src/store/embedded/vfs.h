// How SQLite's files map to the three files of an archive: the database's journal is kept in `X.ISF`.
#pragma once

#include "store/embedded/journal.h"

namespace store::embedded {

// The name under which the file layer for archives with that journal is registered with SQLite, which the
// first call does. It is SQLite's own layer for this system, but for the journal of an archive
// (`X.ISD-journal` or `X.ISD-wal`): it goes to the `.ISF`, which must exist and is cut to nothing where
// SQLite would delete it. The other kind of journal does not exist and cannot be made. Only one of both names
// leads to the file: SQLite takes a write-ahead log that it finds under the other name for a hot rollback
// journal and destroys it.
const char* fileLayer(Journal journal);

}  // namespace store::embedded
