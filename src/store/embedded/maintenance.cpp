// What the embedded engine does to an archive that nobody else has open, or that may be damaged.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "store/embedded/engine.h"
#include "store/embedded/salvage.h"
#include "store/embedded/table.h"
#include "store/embedded/vfs.h"
#include "store/errors.h"

namespace store::embedded {
namespace {

constexpr const char* kPrimaryKeys = "sqlite_autoindex_r_1";  // SQLite's own name for the index

// Calls a progress function now and then, also while SQLite is at work by itself.
class Telling {
 public:
  Telling(sqlite3* connection, const Progress& progress) : connection_(connection), progress_(progress) {
    if (!progress) return;
    sqlite3_progress_handler(
        connection, 500'000,
        [](void* self) {
          static_cast<Telling*>(self)->tell();
          return 0;
        },
        this);
  }
  ~Telling() { sqlite3_progress_handler(connection_, 0, nullptr, nullptr); }
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

  void reach(double part) { part_ = part; }
  // One more of `all`, between the parts `from` and `to`.
  void step(std::size_t done, std::size_t all, double from, double to) {
    if (done % 4096 != 0) return;
    part_ = from + (to - from) * std::min(1.0, static_cast<double>(done) / static_cast<double>(all + 1));
    tell();
  }

 private:
  void tell() const {
    if (progress_) progress_(part_);
  }
  sqlite3* connection_;
  const Progress& progress_;
  double part_ = 0;
};

std::string readText(int descriptor) {
  std::string text(65536, '\0');
  const ssize_t size = ::pread(descriptor, text.data(), text.size(), 0);
  text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return text;
}

bool isThere(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

struct Identity {
  Descriptor descriptor;
  std::string uuid;
  LogMark mark;
};

Code readIdentity(sqlite3* db, Identity& identity) {
  Statement statement(db, "SELECT format,keylen,uuid,codec,log,seq FROM meta,grp");
  const int result = statement.step();
  if (result != SQLITE_ROW) return result == SQLITE_DONE ? kDisk : codeOf(db, result);
  identity.descriptor = {static_cast<int>(statement.integer(1)), std::string(statement.bytes(0))};
  identity.uuid = statement.bytes(2);
  identity.mark = {static_cast<std::uint64_t>(statement.integer(4)),
                   static_cast<std::uint64_t>(statement.integer(5))};
  if (statement.integer(3) != kCodec) return kDisk;
  try {
    parseFormat(identity.descriptor.format);
  } catch (const std::invalid_argument&) {
    return kDisk;
  }
  return statement.step() == SQLITE_DONE ? kOk : kDisk;
}

std::size_t rowsOf(sqlite3* db) {  // about: the highest number of a row
  Statement statement(db, "SELECT max(id) FROM r");
  return statement.step() == SQLITE_ROW ? static_cast<std::size_t>(statement.integer(0)) : 0;
}

// The database of a new family, filled in the order of the rows; its indexes are made in one go behind them.
// Nobody knows it yet, so it needs no journal of its own.
class NewDatabase {
 public:
  Code begin(const std::string& path, mode_t permissions, const Identity& identity) {
    path_ = path;
    if (const Code code = makeEmpty(path, permissions)) return code;
    sqlite3* opened = nullptr;
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(path.c_str(), &opened, kFlags, nullptr);
    db_.reset(opened);
    if (result != SQLITE_OK) return codeOf(opened, result);
    format_ = parseFormat(identity.descriptor.format);
    const std::string schema =
        "PRAGMA page_size=4096;PRAGMA journal_mode=OFF;PRAGMA synchronous=OFF;PRAGMA temp_store=MEMORY;"
        "PRAGMA secure_delete=ON;PRAGMA locking_mode=EXCLUSIVE;PRAGMA cache_size=-64000;BEGIN;" +
        tablesOf(format_);
    if (const Code code = execute(opened, schema)) return code;
    Statement meta(opened, "INSERT INTO meta VALUES(CAST(?1 AS TEXT),?2,CAST(?3 AS TEXT),?4)");
    meta.bind(1, identity.descriptor.format);
    meta.bind(2, std::int64_t{identity.descriptor.keyLength});
    meta.bind(3, identity.uuid);
    meta.bind(4, std::int64_t{kCodec});
    if (const int done = meta.run(); done != SQLITE_DONE) return codeOf(opened, done);
    Statement mark(opened, "INSERT INTO grp VALUES(?1,?2)");
    mark.bind(1, static_cast<std::int64_t>(identity.mark.log));
    mark.bind(2, static_cast<std::int64_t>(identity.mark.seq));
    if (const int done = mark.run(); done != SQLITE_DONE) return codeOf(opened, done);
    std::string columns = "pk,rec", values = "?1,?2";
    for (std::size_t i = 0; i < format_.indexed.size(); ++i) {
      columns += "," + columnOf(format_.indexed[i]);
      values += ",?" + std::to_string(i + 3);
    }
    insert_.emplace(opened, "INSERT INTO r(" + columns + ") VALUES(" + values + ")");
    return kOk;
  }

  // kNotFound for a record that does not fit the format.
  Code add(std::string_view primaryKey, std::string_view record) {
    if (!indexKeys(format_, record, keys_)) return kNotFound;
    seal(primaryKey, record, sealed_);
    insert_->bind(1, primaryKey);
    insert_->bind(2, sealed_);
    for (std::size_t i = 0; i < keys_.size(); ++i) insert_->bind(static_cast<int>(i) + 3, keys_[i]);
    const int result = insert_->run();
    return result == SQLITE_DONE ? kOk : codeOf(db_.get(), result);
  }

  // Durable when it returns kOk.
  Code finish(Journal journal, const Progress& progress) {
    {
      const Telling telling(db_.get(), progress);
      if (const Code code = execute(db_.get(), indexesOf(format_) + "COMMIT")) return code;
    }
    insert_.reset();
    db_.reset();
    return writeJournal(path_, journal);
  }

  sqlite3* connection() const { return db_.get(); }

 private:
  std::string path_;
  Connection db_;
  Format format_;
  std::optional<Statement> insert_;
  std::vector<std::string> keys_;
  std::string sealed_;
};

// Puts the new database in the old one's place. What the old one's journal holds would be taken for the new
// one's, were it not of the other kind: so a crash at any step leaves the old archive or the new one, whole.
Code swapIn(const Family& family, mode_t permissions) {
  if (::unlink(family.shared().c_str()) != 0 && errno != ENOENT) return codeOfErrno(errno);
  if (::rename(family.fresh().c_str(), family.database.c_str()) != 0) return codeOfErrno(errno);
  if (const Code code = syncDirectoryOf(family.database)) return code;
  LockFile journal;
  if (const Code code = journal.make(family.journal, permissions)) return code;
  return ::ftruncate(journal.descriptor(), 0) == 0 && ::fsync(journal.descriptor()) == 0 ? kOk
                                                                                         : codeOfErrno(errno);
}

// The sum of the entries of an index, whatever their order.
class EntrySum {
 public:
  void add(std::string_view key, std::string_view primaryKey, std::int64_t row) {
    std::uint64_t sum = static_cast<std::uint64_t>(row) * 0x9E3779B97F4A7C15;
    for (const std::string_view part : {key, primaryKey}) {
      sum ^= std::hash<std::string_view>()(part);
      sum *= 0xBF58476D1CE4E5B9;
      sum ^= sum >> 29;
    }
    sum_ += sum;
    ++count_;
  }
  bool operator==(const EntrySum&) const = default;

 private:
  std::uint64_t sum_ = 0, count_ = 0;
};

// A database that can be opened is proved sound, row by row and entry by entry.
class Proof {
 public:
  Proof(sqlite3* db, const Format& format, Telling& telling)
      : db_(db), format_(format), telling_(telling), rows_(rowsOf(db)) {}

  Code run() {
    if (const Code code = checkTrees()) return code;
    telling_.reach(0.3);
    if (const Code code = checkRows()) return code;
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      const double part = 0.6 + 0.4 * static_cast<double>(i) / static_cast<double>(sums_.size());
      if (const Code code = checkEntries(i, part)) return code;
    }
    return kOk;
  }

 private:
  int indexOf(std::size_t i) const { return i == 0 ? 0 : format_.indexed[i - 1]; }

  Code checkTrees() {
    Statement check(db_, "PRAGMA quick_check(1)");
    const int result = check.step();
    if (result != SQLITE_ROW) return result == SQLITE_DONE ? kDisk : codeOf(db_, result);
    return check.bytes(0) == "ok" ? kOk : kDisk;
  }

  Code checkRows() {
    std::string sql = "SELECT id,rec,pk";
    for (const int field : format_.indexed) sql += "," + columnOf(field);
    Statement scan(db_, sql + " FROM r NOT INDEXED ORDER BY id");
    sums_.resize(format_.indexed.size() + 1);
    std::vector<std::string> keys;
    std::string record;
    int result = scan.step();
    for (std::size_t done = 0; result == SQLITE_ROW; result = scan.step()) {
      telling_.step(++done, rows_, 0.3, 0.6);
      const std::string_view primaryKey = scan.bytes(2);
      if (!unseal(primaryKey, scan.bytes(1), record) || !indexKeys(format_, record, keys)) return kDisk;
      sums_[0].add({}, primaryKey, scan.integer(0));
      for (std::size_t i = 0; i < keys.size(); ++i) {
        if (scan.bytes(static_cast<int>(i) + 3) != keys[i]) return kDisk;
        sums_[i + 1].add(keys[i], primaryKey, scan.integer(0));
      }
    }
    return result == SQLITE_DONE ? kOk : codeOf(db_, result);
  }

  Code checkEntries(std::size_t i, double part) {
    const int index = indexOf(i);
    const std::string key = columnOf(index), name = index ? "i" + std::to_string(index) : kPrimaryKeys;
    Statement scan(db_, "SELECT " + key + ",pk,id FROM r INDEXED BY " + name + " ORDER BY " + key + ",pk");
    EntrySum sum;
    std::string lastKey, lastPrimary;
    std::size_t done = 0;
    int result = scan.step();
    for (; result == SQLITE_ROW; result = scan.step()) {
      telling_.step(++done, rows_, part, part + 0.4 / static_cast<double>(sums_.size()));
      const std::string_view found = scan.bytes(0), primaryKey = scan.bytes(1);
      const int order = found.compare(lastKey);
      if (done > 1 && (order < 0 || (order == 0 && primaryKey <= lastPrimary))) return kDisk;
      lastKey = found;
      lastPrimary = primaryKey;
      sum.add(index ? found : std::string_view(), primaryKey, scan.integer(2));
    }
    if (result != SQLITE_DONE) return codeOf(db_, result);
    return sum == sums_[i] ? kOk : kDisk;
  }

  sqlite3* db_;
  const Format& format_;
  Telling& telling_;
  std::size_t rows_;
  std::vector<EntrySum> sums_;
};

// The database's rows, as its tree leads to them, into a new one. A row that is not whole ends it.
Code copyRows(sqlite3* from, NewDatabase& to, std::size_t& rows, const Progress& progress) {
  Telling telling(from, progress);
  const std::size_t all = rowsOf(from);
  Statement scan(from, "SELECT id,pk,rec FROM r NOT INDEXED ORDER BY id");
  std::string record;
  std::int64_t last = INT64_MIN;
  int result = scan.step();
  for (; result == SQLITE_ROW; result = scan.step()) {
    telling.step(++rows, all, 0, 0.5);
    const std::string_view primaryKey = scan.bytes(1);
    if (!unseal(primaryKey, scan.bytes(2), record) || scan.integer(0) <= last) return kDisk;
    last = scan.integer(0);
    const Code code = to.add(primaryKey, record);
    if (code != kOk) return code == kNotFound ? kDisk : code;
  }
  return result == SQLITE_DONE ? kOk : codeOf(from, result);
}

}  // namespace

// Under MAKE and USE, which keep out whoever would open the archive.
Code EmbeddedEngine::enterAlone(const Family& family, LockFile& use) {
  if (const Code code = use.open(family.descriptor)) return code;
  if (const Code code = lockMaking(use)) return code;
  if (!use.isStillAt(family.descriptor)) return kSystem;
  const Code alone = use.tryExclusive(kUseByte);
  return alone == kNotFound ? kSystem : alone;
}

bool EmbeddedEngine::isOpenElsewhere(const std::string& stem) {
  const Family family(stem);
  LockFile use;
  return use.open(family.descriptor) == kOk && lockMaking(use) == kOk &&
         use.tryExclusive(kUseByte) == kNotFound;
}

Code EmbeddedEngine::checkJournal(const std::string& stem) {
  const Family family(stem);
  LockFile use;
  if (use.open(family.descriptor) != kOk) return kOk;  // validate() tells what is missing
  if (const Code code = lockMaking(use)) return code;
  const Code alone = use.tryExclusive(kUseByte);
  if (alone == kNotFound) return kOk;  // those that have it open have read the journal
  if (alone != kOk) return alone;
  Pages pages;
  if (const Code code = pages.open(family)) return code;
  return pages.hasHole() ? kDisk : kOk;
}

Code EmbeddedEngine::validate(const std::string& stem, const std::optional<Shape>& shape,
                              const Progress& progress) {
  const Family family(stem);
  for (const std::string& path : {family.descriptor, family.database, family.journal})
    if (!isThere(path)) return kSystem;
  LockFile use;
  if (const Code code = use.open(family.descriptor)) return code;
  Descriptor told;
  if (!readDescriptor(readText(use.descriptor()), told) || (shape && *shape != told)) return kDisk;
  Journal journal = Journal::ahead;
  if (const Code code = enter(family, use, journal)) return code;
  Connection connection;
  if (const Code code = connect(family, journal, connection)) return code;
  sqlite3* db = connection.get();
  if (const Code code = execute(db, "PRAGMA mmap_size=0;PRAGMA cell_size_check=ON;BEGIN")) return code;
  Identity identity;
  if (const Code code = readIdentity(db, identity)) return code;
  if (identity.descriptor != told) return kDisk;
  Telling telling(db, progress);
  const Format format = parseFormat(told.format);
  return Proof(db, format, telling).run();
}

Code EmbeddedEngine::rebuild(const std::string& stem, const Progress& progress) {
  const Family family(stem);
  if (!family.isWhole()) return kSystem;
  LockFile use;
  if (const Code code = enterAlone(family, use)) return code;
  Journal journal = Journal::ahead;
  if (const Code code = readJournal(family.database, journal)) return code;
  NewDatabase fresh;
  std::size_t rows = 0;
  const auto fill = [&]() -> Code {
    Connection connection;
    if (const Code code = connect(family, journal, connection)) return code;
    sqlite3* db = connection.get();
    if (const Code code = execute(db, "PRAGMA mmap_size=0;PRAGMA cell_size_check=ON")) return code;
    Identity identity;
    if (const Code code = readIdentity(db, identity)) return code;
    if (journal == Journal::ahead) {
      const int result = sqlite3_wal_checkpoint_v2(db, "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
      if (result != SQLITE_OK) return codeOf(db, result);
    }
    if (const Code code = fresh.begin(family.fresh(), permissions(), identity)) return code;
    return copyRows(db, fresh, rows, progress);
  };
  Code code = fill();
  Pages pages;
  if (code == kOk) code = pages.open(family);
  // Rows that the tree does not lead to would be lost here: those are for a repair.
  if (code == kOk && countRows(pages) != rows) code = kDisk;
  const Progress rest = [&](double) { progress(0.75); };
  if (code == kOk) code = fresh.finish(pages.otherJournal(), progress ? rest : Progress());
  if (code == kOk) code = swapIn(family, permissions());
  if (code != kOk) ::unlink(family.fresh().c_str());
  return code;
}

Code EmbeddedEngine::repair(const std::string& stem, const std::optional<Shape>& shape, Salvage& salvage,
                            const Progress& progress) {
  const Family family(stem);
  if (!isThere(family.descriptor) && !isThere(family.database) && !isThere(family.journal)) return kSystem;
  LockFile use;
  if (const Code code = use.make(family.descriptor, permissions())) return code;
  if (const Code code = enterAlone(family, use)) return code;
  Pages pages;
  if (const Code code = pages.open(family)) return code;
  Salvager salvager(pages);
  const Progress finding = [&](double part) { progress(part / 2); },
                 filling = [&](double part) { progress(0.75 + part / 4); };
  salvager.run(progress ? finding : Progress());
  Identity identity{{}, newUuid(), {}};
  Descriptor told;
  const bool describes = readDescriptor(readText(use.descriptor()), told);
  if (salvager.identity()) {
    identity.uuid = salvager.identity()->uuid;
    if (salvager.mark()) identity.mark = *salvager.mark();
  }
  if (!shape && !describes && !salvager.identity()) return kDisk;  // nothing tells what it was
  identity.descriptor = shape ? *shape : describes ? told : salvager.identity()->shape;
  NewDatabase fresh;
  Code code = fresh.begin(family.fresh(), permissions(), identity);
  if (code == kOk)
    code = salvager.each([&](std::string_view primaryKey, std::string_view record) -> Code {
      const Code added = fresh.add(primaryKey, record);
      if (added == kNotFound) return salvage.lost.emplace_back(primaryKey), kOk;
      ++salvage.kept;
      return added;
    });
  for (std::string& key : salvager.lost(identity.descriptor.keyLength))
    salvage.lost.push_back(std::move(key));
  if (code == kOk) code = fresh.finish(pages.otherJournal(), progress ? filling : Progress());
  // The descriptor first: it may belong to either database.
  const std::string text = textOf(identity.descriptor);
  if (code == kOk && readText(use.descriptor()) != text) {
    code = ::ftruncate(use.descriptor(), static_cast<off_t>(text.size())) == 0 ? kOk : codeOfErrno(errno);
    if (code == kOk) code = writeWhole(use.descriptor(), text);
  }
  if (code == kOk) code = swapIn(family, permissions());
  if (code != kOk) ::unlink(family.fresh().c_str());
  return code;
}

}  // namespace store::embedded
