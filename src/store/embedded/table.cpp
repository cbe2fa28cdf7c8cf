#include "store/embedded/table.h"

#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "store/checksum.h"
#include "store/errors.h"

namespace store::embedded {
namespace {

constexpr std::size_t kSealBytes = 4;
constexpr std::size_t kBatchBytes = 1 << 20;  // documents of 400 rows must not fill the memory
constexpr int kManyFrames = 1000;             // of 4 KB: a journal so long is written back when it is settled
constexpr int kTooManyFrames = 8000;          // and so long, by the next flush
constexpr int kFullJournal = 32'000;          // and so long, by the change that makes it so

std::uint32_t sealOf(std::string_view primaryKey, std::string_view record) {
  return crc32c(record, crc32c(primaryKey));
}

int noteFrames(void* frames, sqlite3*, const char*, int count) {
  *static_cast<int*>(frames) = count;
  return SQLITE_OK;
}

}  // namespace

std::string columnOf(int index) { return index == 0 ? "pk" : "k" + std::to_string(index); }

std::string tablesOf(const Format& format) {
  std::string columns = "id INTEGER PRIMARY KEY,pk BLOB NOT NULL UNIQUE";
  for (const int field : format.indexed) columns += "," + columnOf(field) + " BLOB NOT NULL";
  return "CREATE TABLE r(" + columns +
         ",rec BLOB NOT NULL);"
         "CREATE TABLE grp(log INTEGER NOT NULL,seq INTEGER NOT NULL);"
         "CREATE TABLE meta(format TEXT NOT NULL,keylen INTEGER NOT NULL,uuid TEXT NOT NULL,"
         "codec INTEGER NOT NULL);";
}

std::string indexesOf(const Format& format) {
  std::string indexes;
  for (const int field : format.indexed)
    indexes += "CREATE INDEX i" + std::to_string(field) + " ON r(" + columnOf(field) + ",pk);";
  return indexes;
}

void seal(std::string_view primaryKey, std::string_view record, std::string& sealed) {
  const std::uint32_t sum = sealOf(primaryKey, record);
  char bytes[kSealBytes];
  std::memcpy(bytes, &sum, kSealBytes);
  sealed.assign(record);
  sealed.append(bytes, kSealBytes);
}

bool unseal(std::string_view primaryKey, std::string_view sealed, std::string& record) {
  if (sealed.size() < kSealBytes) return false;
  const std::string_view bytes = sealed.substr(0, sealed.size() - kSealBytes);
  std::uint32_t sum = 0;
  std::memcpy(&sum, sealed.data() + bytes.size(), kSealBytes);
  if (sum != sealOf(primaryKey, bytes)) return false;
  record.assign(bytes);
  return true;
}

Code EmbeddedTable::start(const std::string& path) {
  path_ = path;
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return codeOfErrno(errno);
  device_ = info.st_dev;
  inode_ = info.st_ino;
  sqlite3_wal_hook(db_.get(), noteFrames, &journalFrames_);
  if (const Code result = readMeta()) return result;
  if (const Code result = findToken()) return result;
  lookUpSql_ = "SELECT id", insertSql_ = "INSERT INTO r(pk,rec", updateSql_ = "UPDATE r SET rec=?2";
  std::string values = "?1,?2";
  for (std::size_t i = 0; i < format_.indexed.size(); ++i) {
    const std::string column = columnOf(format_.indexed[i]), value = "?" + std::to_string(i + 3);
    lookUpSql_ += "," + column;
    insertSql_ += "," + column;
    values += "," + value;
    updateSql_ += "," + column + "=" + value;
  }
  lookUpSql_ += " FROM r WHERE pk=?1";
  insertSql_ += ") VALUES(" + values + ")";
  updateSql_ += " WHERE id=?1";
  return kOk;
}

Code EmbeddedTable::readMeta() {
  Statement meta(db_.get(), "SELECT format,keylen,uuid,codec FROM meta");
  const int result = meta.step();
  if (result == SQLITE_DONE) return kDisk;
  if (result != SQLITE_ROW) return failure(result);
  keyLength_ = static_cast<int>(meta.integer(1));
  uuid_ = meta.bytes(2);
  if (meta.integer(3) != kCodec) return kDisk;
  try {
    format_ = parseFormat(meta.bytes(0));
  } catch (const std::invalid_argument&) {
    return kDisk;
  }
  return kOk;
}

Code EmbeddedTable::findToken() {
  sqlite3_file_control(db_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file_);
  if (journal_ == Journal::rollback) return kOk;
  void volatile* index = nullptr;
  constexpr int kRegionBytes = 32768;
  const int result = file_->pMethods->xShmMap(file_, 0, kRegionBytes, 0, &index);
  if (result != SQLITE_OK) return failure(result);
  if (!index) return kDisk;  // no write-ahead journal: not as this engine makes its archives
  journalIndex_ = index;
  return kOk;
}

Code EmbeddedTable::token(std::uint64_t& value) {
  if (journal_ == Journal::rollback) {
    constexpr int kChangeCounter = 24;  // in the header of the database
    std::uint32_t counter = 0;
    const int result = file_->pMethods->xRead(file_, &counter, sizeof counter, kChangeCounter);
    value = counter;
    if (result == SQLITE_OK) return kOk;
    int cause = 0;  // the connection does not know of this read
    sqlite3_file_control(db_.get(), "main", SQLITE_FCNTL_LAST_ERRNO, &cause);
    return result == SQLITE_IOERR_SHORT_READ || cause == 0 ? kDisk : codeOfErrno(cause);
  }
  // The checksum that closes the header of the journal's index: 8 bytes at offset 40, which a commit writes
  // last. It stays mapped as long as the connection lives.
  const auto* header = static_cast<const volatile std::uint64_t*>(journalIndex_);
  value = header[5];
  std::atomic_thread_fence(std::memory_order_acquire);
  return kOk;
}

bool EmbeddedTable::stale() const {
  struct stat info {};
  return ::stat(path_.c_str(), &info) != 0 || info.st_dev != device_ || info.st_ino != inode_;
}

Statement& EmbeddedTable::kept(Statement& statement, const char* sql) {
  if (!statement.isPrepared()) statement.prepare(db_.get(), sql);
  return statement;
}

Code EmbeddedTable::find(std::string_view primaryKey, std::string& record) {
  if (broken_) return kDisk;
  Statement& statement = kept(find_, "SELECT rec FROM r WHERE pk=?1");
  const Resetting resetting(statement);
  statement.bind(1, primaryKey);
  const int result = statement.step();
  if (result == SQLITE_DONE) return kNotFound;
  if (result != SQLITE_ROW) return failure(result);
  return unseal(primaryKey, statement.bytes(0), record) ? kOk : kDisk;
}

EmbeddedTable::Bound EmbeddedTable::boundOf(Place::At at, Way way) {
  if (way == Way::backward) return at == Place::At::end ? Bound::none : Bound::beyond;
  if (at == Place::At::start) return Bound::none;
  return at == Place::At::before ? Bound::from : Bound::beyond;
}

std::string EmbeddedTable::scanSql(int index, Way way, Bound bound) const {
  const std::string key = columnOf(index), order = way == Way::forward ? "" : " DESC";
  const std::string sign = way == Way::backward ? "<" : bound == Bound::from ? ">=" : ">";
  std::string sql = "SELECT " + key + ",pk,rec FROM r";
  if (bound != Bound::none)
    sql += index == 0 ? " WHERE pk" + sign + "?1" : " WHERE (" + key + ",pk)" + sign + "(?1,?2)";
  sql += " ORDER BY " + key + order;
  if (index != 0) sql += ",pk" + order;
  return sql + " LIMIT ?3";
}

Statement& EmbeddedTable::scan(int index, Way way, Bound bound) {
  const int number = index * 8 + static_cast<int>(way) * 4 + static_cast<int>(bound);
  std::unique_ptr<Statement>& statement = scans_[number];
  if (!statement) statement = std::make_unique<Statement>();
  if (!statement->isPrepared()) statement->prepare(db_.get(), scanSql(index, way, bound));
  return *statement;
}

std::string EmbeddedTable::planOf(int index, Place::At at, Way way) {
  Statement plan(db_.get(), "EXPLAIN QUERY PLAN " + scanSql(index, way, boundOf(at, way)));
  std::string text;
  while (plan.step() == SQLITE_ROW) text.append(plan.bytes(3)).append("\n");
  return text;
}

Code EmbeddedTable::read(int index, const Place& place, Way way, std::size_t limit, RowBatch& rows,
                         bool& atEnd) {
  rows.clear();
  atEnd = place.at == (way == Way::forward ? Place::At::end : Place::At::start);
  if (broken_) return kDisk;
  if (atEnd) return kOk;
  const Bound bound = boundOf(place.at, way);
  Statement& statement = scan(index, way, bound);
  const Resetting resetting(statement);
  statement.bind(1, place.key);
  if (index != 0) statement.bind(2, place.at == Place::At::on ? place.primaryKey : std::string_view());
  statement.bind(3, static_cast<std::int64_t>(limit));
  std::size_t bytes = 0;
  while (bytes < kBatchBytes) {
    const int result = statement.step();
    if (result == SQLITE_DONE) {
      atEnd = rows.size() < limit;
      return kOk;
    }
    if (result != SQLITE_ROW) return failure(result);
    Row& row = rows.add();
    row.indexKey.assign(statement.bytes(0));
    row.primaryKey.assign(statement.bytes(1));
    if (!unseal(row.primaryKey, statement.bytes(2), row.record)) {
      rows.dropLast();
      return rows.size() ? kOk : kDisk;
    }
    bytes += row.record.size();
  }
  return kOk;
}

template <class Work>
Code EmbeddedTable::transaction(Work work) {
  if (broken_) return kDisk;
  if (const int result = kept(begin_, "BEGIN IMMEDIATE").run(); result != SQLITE_DONE) return failure(result);
  Code code = work();
  if (code == kOk) {
    const int result = kept(commit_, "COMMIT").run();
    if (result == SQLITE_DONE) return kOk;
    code = failure(result);
  }
  if (!sqlite3_get_autocommit(db_.get())) kept(rollback_, "ROLLBACK").run();
  return code;
}

Code EmbeddedTable::put(std::string_view primaryKey, std::string_view record, Put mode) {
  const Code code = transaction([&] { return write(primaryKey, record, mode); });
  if (code == kOk) noteChange();
  return code;
}

Code EmbeddedTable::erase(std::string_view primaryKey) {
  const Code code = transaction([&] { return remove(primaryKey); });
  if (code == kOk) noteChange();
  return code;
}

// Whoever writes without ever flushing would fill the disk with the journal. Where it cannot be written back
// the change stands all the same, and the next flush tells it.
void EmbeddedTable::noteChange() {
  dirty_ = true;
  if (journalFrames_ > kFullJournal) settle();
}

Code EmbeddedTable::apply(const std::vector<LogOperation>& operations, const LogMark& mark) {
  return transaction([&]() -> Code {
    for (const LogOperation& operation : operations) {
      const Code code =
          operation.erase ? remove(operation.key) : write(operation.key, operation.record, Put::write);
      if (code != kOk && code != kNotFound) return code;
    }
    Statement& setMark = kept(setMark_, "UPDATE grp SET log=?1,seq=?2");
    setMark.bind(1, static_cast<std::int64_t>(mark.log));
    setMark.bind(2, static_cast<std::int64_t>(mark.seq));
    const int result = setMark.run();
    return result == SQLITE_DONE ? kOk : failure(result);
  });
}

Code EmbeddedTable::write(std::string_view primaryKey, std::string_view record, Put mode) {
  if (!indexKeys(format_, record, keys_)) return kDisk;
  seal(primaryKey, record, sealed_);
  Statement& lookUp = kept(lookUp_, lookUpSql_.c_str());
  std::int64_t id = 0;
  bool sameKeys = true;
  {
    const Resetting resetting(lookUp);
    lookUp.bind(1, primaryKey);
    const int result = lookUp.step();
    if (result != SQLITE_ROW && result != SQLITE_DONE) return failure(result);
    if (result == SQLITE_DONE) {
      if (mode == Put::rewrite) return kNotFound;
      id = -1;
    } else {
      if (mode == Put::add) return kExists;
      id = lookUp.integer(0);
      for (std::size_t i = 0; i < keys_.size(); ++i)
        sameKeys = sameKeys && lookUp.bytes(static_cast<int>(i) + 1) == keys_[i];
    }
  }
  return id < 0 ? insert(primaryKey) : update(id, sameKeys);
}

Code EmbeddedTable::insert(std::string_view primaryKey) {
  Statement& statement = kept(insert_, insertSql_.c_str());
  statement.bind(1, primaryKey);
  statement.bind(2, sealed_);
  for (std::size_t i = 0; i < keys_.size(); ++i) statement.bind(static_cast<int>(i) + 3, keys_[i]);
  const int result = statement.run();
  return result == SQLITE_DONE ? kOk : failure(result);
}

Code EmbeddedTable::update(std::int64_t id, bool sameKeys) {
  // SQLite writes the entries of an index again even when its key stays, so it is not asked to.
  Statement& statement = sameKeys ? kept(updateRecord_, "UPDATE r SET rec=?2 WHERE id=?1")
                                  : kept(updateAll_, updateSql_.c_str());
  statement.bind(1, id);
  statement.bind(2, sealed_);
  for (std::size_t i = 0; !sameKeys && i < keys_.size(); ++i)
    statement.bind(static_cast<int>(i) + 3, keys_[i]);
  const int result = statement.run();
  return result == SQLITE_DONE ? kOk : failure(result);
}

Code EmbeddedTable::remove(std::string_view primaryKey) {
  Statement& statement = kept(remove_, "DELETE FROM r WHERE pk=?1");
  statement.bind(1, primaryKey);
  const int result = statement.run();
  if (result != SQLITE_DONE) return failure(result);
  return sqlite3_changes(db_.get()) ? kOk : kNotFound;
}

Code EmbeddedTable::mark(LogMark& mark) {
  if (broken_) return kDisk;
  Statement& statement = kept(mark_, "SELECT log,seq FROM grp");
  const Resetting resetting(statement);
  const int result = statement.step();
  if (result == SQLITE_DONE) return kDisk;
  if (result != SQLITE_ROW) return failure(result);
  mark.log = static_cast<std::uint64_t>(statement.integer(0));
  mark.seq = static_cast<std::uint64_t>(statement.integer(1));
  return kOk;
}

Code EmbeddedTable::sync() {
  if (broken_) return kDisk;
  if (journal_ == Journal::rollback) return kOk;  // each transaction was durable when it ended
  sqlite3_file* journal = nullptr;
  sqlite3_file_control(db_.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &journal);
  if (!journal || !journal->pMethods) return kOk;  // nothing was ever written through it
  const int result = journal->pMethods->xSync(journal, SQLITE_SYNC_NORMAL | SQLITE_SYNC_DATAONLY);
  if (result == SQLITE_OK) {
    dirty_ = false;
    return kOk;
  }
  broken_ = true;  // the system has forgotten what it could not write: nobody may build on it
  return kDisk;
}

Code EmbeddedTable::flush() {
  if (!dirty_) return broken_ ? kDisk : kOk;
  return journalFrames_ > kTooManyFrames ? settle() : sync();
}

Code EmbeddedTable::settle() {
  if (journalFrames_ <= kManyFrames || broken_) return sync();
  const int result =
      sqlite3_wal_checkpoint_v2(db_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  if (result == SQLITE_OK) {
    journalFrames_ = 0;
    dirty_ = false;
    return kOk;
  }
  // Busy: another station was reading all the while. What counts is that the journal is on the disk.
  return result == SQLITE_BUSY ? sync() : failure(result);
}

}  // namespace store::embedded
