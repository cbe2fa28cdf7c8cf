// A thin hold on SQLite: a connection, a kept statement, the result code of a failure.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "store/record_store.h"

namespace store::embedded {

struct CloseConnection {
  void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

// The result code of SQLite's `result`, never kNotFound or kExists. Asks the connection for the operating
// system's own error, so call it before anything else is done there.
Code codeOf(sqlite3* connection, int result);

// A statement that is kept and run again; reset after each use, since an open one holds a read transaction.
class Statement {
 public:
  Statement() = default;
  Statement(sqlite3* connection, std::string_view sql) { prepare(connection, sql); }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool isPrepared() const { return statement_ != nullptr; }
  void prepare(sqlite3* connection, std::string_view sql);  // step() tells a failure
  // The bytes are not copied: they must stay until the reset.
  void bind(int parameter, std::string_view bytes);
  void bind(int parameter, std::int64_t value);
  int step();
  int reset() { return sqlite3_reset(statement_); }
  int run();  // steps once, for its effect, and resets: SQLITE_DONE or the failure

  std::string_view bytes(int column) const;
  std::int64_t integer(int column) const { return sqlite3_column_int64(statement_, column); }

 private:
  sqlite3_stmt* statement_ = nullptr;
  int prepared_ = SQLITE_MISUSE;
};

// Resets the statement when the scope ends.
class Resetting {
 public:
  explicit Resetting(Statement& statement) : statement_(statement) {}
  ~Resetting() { statement_.reset(); }
  Resetting(const Resetting&) = delete;
  Resetting& operator=(const Resetting&) = delete;

 private:
  Statement& statement_;
};

}  // namespace store::embedded
