#include "store/embedded/engine.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <random>
#include <thread>
#include <utility>

#include "store/embedded/family.h"
#include "store/embedded/sql.h"
#include "store/embedded/table.h"
#include "store/embedded/vfs.h"
#include "store/errors.h"
#include "store/files.h"
#include "store/locks.h"

namespace store {
namespace embedded {
namespace {

// The large archives that every screen and report scans deserve more memory.
int cacheKilobytes(std::string_view stem) {
  for (const std::string_view large : {"mc", "pc", "mm"})
    if (stem.ends_with(large)) return 64'000;
  return 8'000;
}

}  // namespace

// Another station's transaction lasts some 0.1 ms: it is asked again soon, and for long.
bool BusyWait::once(int attempt) {
  constexpr std::int64_t kMostMicroseconds = 60'000'000;
  if (attempt == 0) {
    waited = 0;
    nextCall = 300'000;
  }
  if (waited > kMostMicroseconds) return false;
  const std::int64_t nap = std::min<std::int64_t>(20LL << std::min(attempt, 5), 500);
  std::this_thread::sleep_for(std::chrono::microseconds(nap));
  waited += nap;
  if (waited >= nextCall) {
    nextCall += 100'000;
    if (onWait) onWait();
  }
  return true;
}

std::string newUuid() {
  std::random_device random;
  constexpr char kDigits[] = "0123456789abcdef";
  std::string uuid;
  for (int i = 0; i < 4; ++i)
    for (unsigned bits = random(), digit = 0; digit < 8; ++digit, bits >>= 4) uuid += kDigits[bits & 15];
  return uuid;
}

Code execute(sqlite3* connection, const std::string& sql) {
  return codeOf(connection, sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr));
}

// An empty file of its own mode: SQLite would make it readable for all.
Code makeEmpty(const std::string& path, mode_t permissions) {
  LockFile file;
  if (const Code result = file.make(path, permissions)) return result;
  return ::ftruncate(file.descriptor(), 0) == 0 ? kOk : codeOfErrno(errno);
}

Code writeWhole(int descriptor, const std::string& text) {
  if (::pwrite(descriptor, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
    return errno ? codeOfErrno(errno) : kDiskFull;
  return ::fsync(descriptor) == 0 ? kOk : codeOfErrno(errno);
}

Code EmbeddedEngine::connect(const Family& family, Journal journal, Connection& connection) {
  sqlite3* opened = nullptr;
  constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  const int result = sqlite3_open_v2(family.database.c_str(), &opened, kFlags, fileLayer(journal));
  connection.reset(opened);
  if (result != SQLITE_OK) return codeOf(opened, result);
  if (sqlite3_db_readonly(opened, "main") == 1) return kSystem;
  sqlite3_busy_handler(
      opened,
      [](void* wait, int attempt) { return static_cast<int>(static_cast<BusyWait*>(wait)->once(attempt)); },
      &wait_);
  return kOk;
}

Code EmbeddedEngine::open(const std::string& stem, std::unique_ptr<Table>& table) {
  const Family family(stem);
  if (!family.isWhole()) return kSystem;
  LockFile use;
  Journal journal = Journal::ahead;
  if (const Code result = enter(family, use, journal)) return result;
  Connection connection;
  if (const Code result = connect(family, journal, connection)) return result;
  sqlite3* db = connection.get();
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // What is deleted is overwritten: a repair takes what it finds in any page for a record that stands.
  // Written ahead, the journal is made durable by flush and settle alone; a checkpoint in the middle of a
  // posting would cost two flushes. A rollback journal has to be durable before each change.
  const std::string common =
                        "PRAGMA mmap_size=0;PRAGMA temp_store=MEMORY;PRAGMA cell_size_check=ON;"
                        "PRAGMA secure_delete=ON;",
                    safety = journal == Journal::ahead
                                 ? "PRAGMA synchronous=NORMAL;PRAGMA wal_autocheckpoint=0;"
                                 : "PRAGMA journal_mode=PERSIST;PRAGMA synchronous=FULL;",
                    cache = "PRAGMA cache_size=-" + std::to_string(cacheKilobytes(stem));
  if (const Code result = execute(db, common + safety + cache)) return result;
  auto opened = std::make_unique<EmbeddedTable>(std::move(connection), std::move(use), journal);
  if (const Code result = opened->start(family.database)) return result;
  table = std::move(opened);
  return kOk;
}

Code EmbeddedEngine::lockMaking(LockFile& descriptor) {
  LockWait wait(wait_.onWait);
  Code taken = descriptor.tryExclusive(kMakeByte);
  for (; taken == kNotFound; taken = descriptor.tryExclusive(kMakeByte)) wait.once();
  return taken;
}

// Joins those that have the archive open, and tells its journal; when there is nobody, the journal is first
// made the one that suits this station.
Code EmbeddedEngine::enter(const Family& family, LockFile& use, Journal& journal) {
  if (const Code code = use.open(family.descriptor)) return code;
  if (const Code code = lockMaking(use)) return code;
  if (!use.isStillAt(family.descriptor)) return kSystem;  // removed while this station waited
  const Code alone = use.tryExclusive(kUseByte);
  if (alone != kOk && alone != kNotFound) return alone;
  if (const Code code = readJournal(family.database, journal)) return code;
  const Journal wanted = journalFor(family.database);
  if (alone == kOk && journal != wanted) {
    if (const Code code = convert(family, journal, wanted)) return code;
    journal = wanted;
  }
  // The memory that the journal's users share ends at this machine.
  if (journal == Journal::ahead && isOnNetwork(family.database)) return kSystem;
  if (const Code code = use.tryShared(kUseByte)) return code == kNotFound ? kSystem : code;
  return use.release(kMakeByte);
}

// Under MAKE and USE. Whatever the old journal holds is written to the database first, so that a crash
// between any two steps leaves an archive that is whole in one of both ways.
Code EmbeddedEngine::convert(const Family& family, Journal from, Journal to) {
  {
    Connection connection;
    if (const Code code = connect(family, from, connection)) return code;
    sqlite3* db = connection.get();
    if (const Code code = execute(db, "SELECT 1 FROM meta")) return code;
    if (from == Journal::ahead) {
      const int result = sqlite3_wal_checkpoint_v2(db, "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
      if (result != SQLITE_OK) return codeOf(db, result);
    }
  }
  LockFile file;
  if (const Code code = file.open(family.journal)) return code;
  if (::ftruncate(file.descriptor(), 0) != 0 || ::fsync(file.descriptor()) != 0) return codeOfErrno(errno);
  if (::unlink(family.shared().c_str()) != 0 && errno != ENOENT) return codeOfErrno(errno);
  return writeJournal(family.database, to);
}

Code EmbeddedEngine::create(const std::string& stem, int keyLength, const std::string& format) {
  const Descriptor descriptor{keyLength, format};
  parseFormat(format);
  return make(Family(stem), descriptor, [&](const Family& family) { return fill(family, descriptor); });
}

template <class Fill>
Code EmbeddedEngine::make(const Family& family, const Descriptor& descriptor, const Fill& fill) {
  // Two stations may find the same archive missing: the descriptor's lock decides which of them makes it, and
  // a descriptor without text is what a creation left that was cut short.
  LockFile file;
  if (const Code result = file.make(family.descriptor, (share_ ? kShared : kOwn).file)) return result;
  if (const Code result = lockMaking(file)) return result;
  if (::lseek(file.descriptor(), 0, SEEK_END) != 0) return kSystem;
  Code result = fill(family);
  if (result == kOk) result = writeWhole(file.descriptor(), textOf(descriptor));
  if (result == kOk) result = syncDirectoryOf(family.descriptor);
  if (result != kOk) family.remove();
  return result;
}

Code EmbeddedEngine::fill(const Family& family, const Descriptor& descriptor) {
  ::unlink(family.shared().c_str());
  for (const std::string& path : {family.database, family.journal})
    if (const Code result = makeEmpty(path, (share_ ? kShared : kOwn).file)) return result;
  const Journal journal = journalFor(family.database);
  Connection connection;
  if (const Code result = connect(family, journal, connection)) return result;
  sqlite3* db = connection.get();
  const Format format = parseFormat(descriptor.format);
  // Nobody knows the archive yet, so a failure needs no journal: the files are made anew.
  const std::string schema =
      "PRAGMA page_size=4096;PRAGMA journal_mode=MEMORY;PRAGMA synchronous=OFF;BEGIN;" + tablesOf(format) +
      indexesOf(format) + "INSERT INTO grp VALUES(0,0);";
  if (const Code result = execute(db, schema)) return result;
  {
    Statement meta(db, "INSERT INTO meta VALUES(CAST(?1 AS TEXT),?2,CAST(?3 AS TEXT),?4)");
    const std::string uuid = newUuid();
    meta.bind(1, descriptor.format);
    meta.bind(2, std::int64_t{descriptor.keyLength});
    meta.bind(3, uuid);
    meta.bind(4, std::int64_t{kCodec});
    if (const int result = meta.run(); result != SQLITE_DONE) return codeOf(db, result);
  }
  if (const Code result = execute(db, "COMMIT")) return result;
  if (journal == Journal::ahead) {
    if (const Code result = execute(db, "PRAGMA journal_mode=WAL")) return result;
  }
  sqlite3_file* file = nullptr;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return codeOf(db, file->pMethods->xSync(file, SQLITE_SYNC_NORMAL));
}

Code EmbeddedEngine::copy(const std::string& from, const std::string& to) {
  const Family source(from);
  if (!source.isWhole()) return kSystem;
  LockFile use;
  Journal journal = Journal::ahead;
  if (const Code result = enter(source, use, journal)) return result;
  Connection connection;
  if (const Code result = connect(source, journal, connection)) return result;
  Descriptor descriptor;
  {
    Statement meta(connection.get(), "SELECT keylen, format FROM meta");
    if (const int result = meta.step(); result != SQLITE_ROW) {
      const Code code = codeOf(connection.get(), result);
      return code == kOk ? kDisk : code;  // no row: no archive
    }
    descriptor = {static_cast<int>(meta.integer(0)), std::string(meta.bytes(1))};
  }
  return make(Family(to), descriptor,
              [&](const Family& family) { return fillFrom(connection.get(), journal, family); });
}

// Page by page, under a read transaction: the files of an archive that a station is writing could not be
// copied whole. The copy is an archive of its own, with its own name in the logs and no past in any of them;
// its header, which is copied, tells the same journal.
Code EmbeddedEngine::fillFrom(sqlite3* source, Journal journal, const Family& family) {
  ::unlink(family.shared().c_str());
  for (const std::string& path : {family.database, family.journal})
    if (const Code result = makeEmpty(path, (share_ ? kShared : kOwn).file)) return result;
  {
    Connection target;
    if (const Code result = connect(family, journal, target)) return result;
    if (const Code result = execute(target.get(), "PRAGMA journal_mode=MEMORY;PRAGMA synchronous=OFF"))
      return result;
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source, "main");
    if (!backup) return codeOf(target.get(), sqlite3_errcode(target.get()));
    const int stepped = sqlite3_backup_step(backup, -1);
    const int finished = sqlite3_backup_finish(backup);
    if (stepped != SQLITE_DONE) return codeOf(target.get(), finished != SQLITE_OK ? finished : stepped);
  }
  Connection copied;
  if (const Code result = connect(family, journal, copied)) return result;
  const std::string rename = "UPDATE meta SET uuid='" + newUuid() + "';UPDATE grp SET log=0, seq=0;";
  if (const Code result = execute(copied.get(), rename)) return result;
  return codeOf(copied.get(), sqlite3_wal_checkpoint_v2(copied.get(), "main", SQLITE_CHECKPOINT_TRUNCATE,
                                                        nullptr, nullptr));
}

}  // namespace embedded

std::unique_ptr<Engine> makeEmbeddedEngine(std::function<void()> onWait, bool share) {
  return std::make_unique<embedded::EmbeddedEngine>(std::move(onWait), share);
}

}  // namespace store
