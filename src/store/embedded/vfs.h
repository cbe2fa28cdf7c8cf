// How SQLite's files map to the three files of an archive: `X.ISD-wal` is kept in `X.ISF`.
#pragma once

namespace store::embedded {

// The name under which the file layer is registered with SQLite, which the first call does. It is SQLite's
// own layer for this system, but for the journal of an archive: it goes to the `.ISF`, which must exist and
// is cut to nothing where SQLite would delete it; a rollback journal does not exist and cannot be made. A
// single name for the journal matters: SQLite takes a write-ahead log that it finds under the other name for
// a hot rollback journal and destroys it.
const char* fileLayer();

}  // namespace store::embedded
