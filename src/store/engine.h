// What a storage engine offers to RecordStore: archives as ordered tables of packed records, without handles,
// positions, groups or record locks, which RecordStore adds. No word of any particular engine here.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/format.h"
#include "store/group_log.h"
#include "store/record_store.h"

namespace store {

struct Row {
  std::string indexKey, primaryKey, record;
};

// Rows read ahead. It keeps the memory of its rows when it is emptied: a scan fills it again and again.
class RowBatch {
 public:
  std::size_t size() const { return used_; }
  Row& operator[](std::size_t i) { return rows_[i]; }
  void clear() { used_ = 0; }
  void dropLast() { --used_; }
  Row& add() {
    if (used_ == rows_.size()) rows_.emplace_back();
    return rows_[used_++];
  }

 private:
  std::vector<Row> rows_;
  std::size_t used_ = 0;
};

// What a repair has found.
struct Salvage {
  std::size_t kept = 0;
  std::vector<std::string> lost;  // primary keys that an index names and no whole record bears
};

enum class Way { forward, backward };

// Where a scan stands on one index.
struct Place {
  enum class At {
    start,   // before the first row
    before,  // just before the first row whose key is `key` or greater
    on,      // on the row (key, primaryKey), which may have gone since
    end      // behind the last row
  };
  At at = At::start;
  std::string key, primaryKey;
};

// One open archive. Single-threaded; other tables on the same files, in this process or another, are seen
// and see this one's writes at once.
class Table {
 public:
  virtual ~Table() = default;
  virtual const Format& format() const = 0;
  virtual int keyLength() const = 0;
  virtual const std::string& uuid() const = 0;  // of this family of files; a new one with each create

  virtual Code find(std::string_view primaryKey, std::string& record) = 0;  // kNotFound
  // The rows beyond `place` in that direction, ordered by key, then primary key: at most `limit`, fewer when
  // they are large or the next one is damaged, which fails when it comes first. `atEnd`: no row stands behind
  // the last one delivered.
  virtual Code read(int index, const Place& place, Way way, std::size_t limit, RowBatch& rows,
                    bool& atEnd) = 0;

  // Changes with every write to the archive, own or foreign; cheap enough for each step of a scan.
  virtual Code token(std::uint64_t& value) = 0;

  // All operations as one transaction, together with the mark.
  virtual Code apply(const std::vector<LogOperation>& operations, const LogMark& mark) = 0;
  // One write with its condition, as one transaction: kExists for an add that is there, kNotFound for a
  // rewrite or an erase that is not. kDisk for a record that does not fit the format.
  virtual Code put(std::string_view primaryKey, std::string_view record, Put mode) = 0;
  virtual Code erase(std::string_view primaryKey) = 0;

  virtual Code mark(LogMark& mark) = 0;  // of the last apply; {} in a new archive
  virtual Code flush() = 0;              // what put and erase wrote here is durable when it returns kOk
  virtual Code settle() = 0;             // as flush, for what any station wrote or applied
  virtual bool stale() const = 0;        // the files were removed or replaced since the opening
  virtual bool broken() const = 0;       // a flush has failed: kDisk until it is opened again
};

// `stem` is the archive's path without extension.
class Engine {
 public:
  virtual ~Engine() = default;
  // Durable when it returns kOk. kSystem when the archive is there already.
  virtual Code create(const std::string& stem, int keyLength, const std::string& format) = 0;
  // A new archive with the records of `from`, as they stand between two writes of whatever station. Durable
  // when it returns kOk. kSystem when `from` is not there, or `to` is.
  virtual Code copy(const std::string& from, const std::string& to) = 0;
  virtual Code kill(const std::string& stem) = 0;  // kSystem when nothing of it is there
  virtual bool exists(const std::string& stem) const = 0;
  virtual bool isOpenElsewhere(const std::string& stem) = 0;  // by another station, or by a table of this one
  virtual Code open(const std::string& stem, std::unique_ptr<Table>& table) = 0;  // kSystem: not there

  // Maintenance, as RecordStore tells it, but for the group log. This station has no table of the archive
  // open. checkJournal: whether what a station has left in the journal is whole; to be asked before anybody
  // opens the archive, which keeps of it only what stands before the first damage. validate: the rest.
  virtual Code checkJournal(const std::string& stem) = 0;
  virtual Code validate(const std::string& stem, const std::optional<Shape>& shape,
                        const Progress& progress) = 0;
  virtual Code rebuild(const std::string& stem, const Progress& progress) = 0;
  // Keeps uuid and mark where they can be read.
  virtual Code repair(const std::string& stem, const std::optional<Shape>& shape, Salvage& salvage,
                      const Progress& progress) = 0;
};

// `onWait` is called while another station's write is waited for: after 300 ms, then every 100 ms. `share` as
// in StoreOptions.
std::unique_ptr<Engine> makeEmbeddedEngine(std::function<void()> onWait = {}, bool share = false);

}  // namespace store
