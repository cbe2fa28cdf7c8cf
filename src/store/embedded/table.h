// One archive open in the embedded engine: a SQLite database with its journal.
//
// r(id, pk, k<N>..., rec) holds a row for each record: its keys and the packed record with a checksum behind
// it; an index i<N>(k<N>, pk) for each indexed field; grp(log, seq) the mark of the last group applied;
// meta(format, keylen, uuid, codec) what the archive is.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/embedded/journal.h"
#include "store/embedded/sql.h"
#include "store/engine.h"
#include "store/locks.h"

namespace store::embedded {

inline constexpr int kCodec = 1;  // the form of the packed records and their checksum

// The statements that make the tables of an empty archive, and the indexes on them.
std::string tablesOf(const Format& format);
std::string indexesOf(const Format& format);
std::string columnOf(int index);  // where the key of an index stands: pk, k<N>

// The record with its checksum behind it. The checksum is over the primary key, too: a record that turns up
// under another key is damaged.
void seal(std::string_view primaryKey, std::string_view record, std::string& sealed);
bool unseal(std::string_view primaryKey, std::string_view sealed, std::string& record);  // false: damaged

class EmbeddedTable final : public Table {
 public:
  // `use` tells other stations that the archive is open, and keeps `journal` what it is.
  EmbeddedTable(Connection connection, LockFile use, Journal journal)
      : use_(std::move(use)), db_(std::move(connection)), journal_(journal) {}

  // Reads what the archive is. `path` is the database's.
  Code start(const std::string& path);

  const Format& format() const override { return format_; }
  int keyLength() const override { return keyLength_; }
  const std::string& uuid() const override { return uuid_; }
  Code find(std::string_view primaryKey, std::string& record) override;
  Code read(int index, const Place& place, Way way, std::size_t limit, RowBatch& rows, bool& atEnd) override;
  Code token(std::uint64_t& value) override;
  Code apply(const std::vector<LogOperation>& operations, const LogMark& mark) override;
  Code put(std::string_view primaryKey, std::string_view record, Put mode) override;
  Code erase(std::string_view primaryKey) override;
  Code mark(LogMark& mark) override;
  Code flush() override;
  Code settle() override;
  bool stale() const override;
  bool broken() const override { return broken_; }

  // How SQLite means to run a scan, for the test that it searches an index and never walks or sorts the
  // table.
  std::string planOf(int index, Place::At at, Way way);

 private:
  enum class Bound { from, beyond, none };  // key and primary key >=, >, or no condition

  Code readMeta();
  Code findToken();
  Code failure(int result) { return codeOf(db_.get(), result); }
  static Bound boundOf(Place::At at, Way way);
  std::string scanSql(int index, Way way, Bound bound) const;
  Statement& scan(int index, Way way, Bound bound);
  Statement& kept(Statement& statement, const char* sql);

  template <class Work>
  Code transaction(Work work);
  void noteChange();
  Code write(std::string_view primaryKey, std::string_view record, Put mode);
  Code insert(std::string_view primaryKey);
  Code update(std::int64_t id, bool sameKeys);
  Code remove(std::string_view primaryKey);
  Code sync();

  LockFile use_;  // outlives the connection
  Connection db_;
  Journal journal_;
  std::string path_;
  std::uint64_t device_ = 0, inode_ = 0;  // of the database file when it was opened
  Format format_;
  int keyLength_ = 0;
  std::string uuid_;
  sqlite3_file* file_ = nullptr;                 // of the database
  const volatile void* journalIndex_ = nullptr;  // of a journal written ahead: its header tells every commit
  int journalFrames_ = 0;                        // in a journal written ahead, after the last own commit
  bool dirty_ = false, broken_ = false;

  std::string insertSql_, updateSql_, lookUpSql_;
  Statement begin_, commit_, rollback_, find_, lookUp_, insert_, updateAll_, updateRecord_, remove_, mark_,
      setMark_;
  std::map<int, std::unique_ptr<Statement>> scans_;
  std::vector<std::string> keys_;  // of the record being written
  std::string sealed_;
};

}  // namespace store::embedded
