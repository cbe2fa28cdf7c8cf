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

enum class Way { forward, backward };

// Where a scan stands on one index: a key with its primary key, or one of the two ends.
struct Place {
  enum class At { start, key, end } at = At::start;
  std::string key, primaryKey;
  bool inclusive = false;           // with At::key: a row exactly there is delivered, too
};

class Table {                       // one open archive
 public:
  virtual ~Table() = default;
  virtual const Format& format() const = 0;
  virtual int keyLength() const = 0;
  virtual const std::string& uuid() const = 0;

  virtual Code find(std::string_view primaryKey, std::string& record) = 0;  // kNotFound
  // The first row on `index` whose key is `key` exactly; kNotFound.
  virtual Code findByIndex(int index, std::string_view key, Row& row) = 0;
  // At most `limit` rows beyond `place` in that direction; fewer at the end of the index.
  virtual Code read(int index, const Place& place, Way way, std::size_t limit, std::vector<Row>& rows) = 0;

  // Changes with every write to the archive, own or foreign; cheap enough for each step of a scan.
  virtual Code token(std::uint64_t& value) = 0;

  // All operations as one transaction. With a mark, it is stored in the same transaction.
  virtual Code apply(const std::vector<LogOperation>& operations, const LogMark* mark) = 0;
  // One write with its condition, as one transaction: kExists for an add that is there, kNotFound for a rewrite
  // or an erase that is not.
  virtual Code put(std::string_view primaryKey, std::string_view record, Put mode) = 0;
  virtual Code erase(std::string_view primaryKey) = 0;

  virtual Code mark(LogMark& mark) = 0;
  virtual Code flush() = 0;         // what was written is durable when it returns kOk
  virtual bool stale() = 0;         // another station has removed or replaced the files since the opening
};

class Engine {
 public:
  virtual ~Engine() = default;
  virtual Code create(const std::string& stem, int keyLength, const std::string& format) = 0;
  virtual Code kill(const std::string& stem) = 0;
  virtual Code open(const std::string& stem, std::unique_ptr<Table>& table) = 0;
};

std::unique_ptr<Engine> makeEmbeddedEngine();

}  // namespace store
