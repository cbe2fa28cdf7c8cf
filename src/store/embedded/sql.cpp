#include "store/embedded/sql.h"

#include "store/errors.h"

namespace store::embedded {

Code codeOf(sqlite3* connection, int result) {
  switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return kOk;
    case SQLITE_FULL:
      return kDiskFull;
    case SQLITE_NOMEM:
      return kNoMemory;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return kSystem;
    case SQLITE_CANTOPEN: {
      const int cause = connection ? sqlite3_system_errno(connection) : 0;
      return cause ? codeOfErrno(cause) : kSystem;
    }
    case SQLITE_IOERR:
      break;
    default:
      return kDisk;
  }
  if (result == SQLITE_IOERR_NOMEM) return kNoMemory;
  if (result == SQLITE_IOERR_SHORT_READ || result == SQLITE_IOERR_DATA) return kDisk;
  const int cause = connection ? sqlite3_system_errno(connection) : 0;
  return cause ? codeOfErrno(cause) : kDisk;
}

void Statement::prepare(sqlite3* connection, std::string_view sql) {
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  prepared_ = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                 SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
}

void Statement::bind(int parameter, std::string_view bytes) {
  // A null pointer would bind NULL, which compares with nothing.
  const char* data = bytes.empty() ? "" : bytes.data();
  sqlite3_bind_blob64(statement_, parameter, data, bytes.size(), SQLITE_STATIC);
}

void Statement::bind(int parameter, std::int64_t value) { sqlite3_bind_int64(statement_, parameter, value); }

int Statement::step() { return statement_ ? sqlite3_step(statement_) : prepared_; }

int Statement::run() {
  const int result = step();
  reset();
  return result;
}

std::string_view Statement::bytes(int column) const {
  const void* data = sqlite3_column_blob(statement_, column);
  const int size = sqlite3_column_bytes(statement_, column);
  return data ? std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size))
              : std::string_view();
}

}  // namespace store::embedded
