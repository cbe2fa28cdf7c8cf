#include "store/engine.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <random>
#include <thread>

#include "store/embedded/family.h"
#include "store/embedded/sql.h"
#include "store/embedded/table.h"
#include "store/embedded/vfs.h"
#include "store/errors.h"
#include "store/files.h"
#include "store/locks.h"

namespace store {
namespace {

using namespace embedded;

constexpr std::uint64_t kCreateByte = (1ULL << 62) + 3;  // held on the descriptor by who makes the archive
constexpr std::int64_t kMostWaitMicroseconds = 60'000'000;

struct BusyWait {
  std::function<void()> onWait;
  std::int64_t waited = 0, nextCall = 0;

  void start() {
    waited = 0;
    nextCall = 300'000;
  }
  // Another station's transaction lasts some 0.1 ms: it is asked again soon, and for long.
  bool once(int attempt) {
    if (attempt == 0) start();
    if (waited > kMostWaitMicroseconds) return false;
    const std::int64_t nap = std::min<std::int64_t>(20LL << std::min(attempt, 5), 500);
    std::this_thread::sleep_for(std::chrono::microseconds(nap));
    waited += nap;
    if (waited >= nextCall) {
      nextCall += 100'000;
      if (onWait) onWait();
    }
    return true;
  }
};

std::string newUuid() {
  std::random_device random;
  constexpr char kDigits[] = "0123456789abcdef";
  std::string uuid;
  for (int i = 0; i < 4; ++i)
    for (unsigned bits = random(), digit = 0; digit < 8; ++digit, bits >>= 4) uuid += kDigits[bits & 15];
  return uuid;
}

// The large archives that every screen and report scans deserve more memory.
int cacheKilobytes(std::string_view stem) {
  for (const std::string_view large : {"mc", "pc", "mm"})
    if (stem.ends_with(large)) return 64'000;
  return 8'000;
}

class EmbeddedEngine final : public Engine {
 public:
  explicit EmbeddedEngine(std::function<void()> onWait) { wait_.onWait = std::move(onWait); }

  Code create(const std::string& stem, int keyLength, const std::string& format) override;
  Code copy(const std::string& from, const std::string& to) override;
  Code kill(const std::string& stem) override { return Family(stem).remove(); }
  bool exists(const std::string& stem) const override { return Family(stem).isWhole(); }
  Code open(const std::string& stem, std::unique_ptr<Table>& table) override;

 private:
  Code connect(const std::string& path, int flags, Connection& connection);
  template <class Fill>
  Code make(const Family& family, const Descriptor& descriptor, const Fill& fill);
  Code fill(const Family& family, const Descriptor& descriptor);
  Code fillFrom(sqlite3* source, const Family& family);

  BusyWait wait_;
};

Code execute(sqlite3* connection, const std::string& sql) {
  return codeOf(connection, sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr));
}

// An empty file of its own mode: SQLite would make it readable for all.
Code makeEmpty(const std::string& path) {
  LockFile file;
  if (const Code result = file.open(path, true)) return result;
  return ::ftruncate(file.descriptor(), 0) == 0 ? kOk : codeOfErrno(errno);
}

Code writeWhole(int descriptor, const std::string& text) {
  if (::pwrite(descriptor, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
    return errno ? codeOfErrno(errno) : kDiskFull;
  return ::fsync(descriptor) == 0 ? kOk : codeOfErrno(errno);
}

Code EmbeddedEngine::connect(const std::string& path, int flags, Connection& connection) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &opened,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, fileLayer());
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
  Connection connection;
  if (const Code result = connect(family.database, SQLITE_OPEN_READWRITE, connection)) return result;
  sqlite3* db = connection.get();
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // The journal is made durable by flush and settle alone; a checkpoint in the middle of a posting would cost
  // two flushes.
  if (const Code result =
          execute(db,
                  "PRAGMA mmap_size=0;PRAGMA temp_store=MEMORY;PRAGMA cell_size_check=ON;"
                  "PRAGMA synchronous=NORMAL;PRAGMA wal_autocheckpoint=0;PRAGMA cache_size=-" +
                      std::to_string(cacheKilobytes(stem))))
    return result;
  auto opened = std::make_unique<EmbeddedTable>(std::move(connection));
  if (const Code result = opened->start(family.database)) return result;
  table = std::move(opened);
  return kOk;
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
  if (const Code result = file.open(family.descriptor, true)) return result;
  LockWait wait(wait_.onWait);
  Code taken = file.tryExclusive(kCreateByte);
  for (; taken == kNotFound; taken = file.tryExclusive(kCreateByte)) wait.once();
  if (taken != kOk) return taken;
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
    if (const Code result = makeEmpty(path)) return result;
  Connection connection;
  if (const Code result = connect(family.database, SQLITE_OPEN_READWRITE, connection)) return result;
  sqlite3* db = connection.get();
  // Nobody knows the archive yet, so a failure needs no journal: the files are made anew.
  const std::string schema =
      "PRAGMA page_size=4096;PRAGMA journal_mode=MEMORY;PRAGMA synchronous=OFF;BEGIN;" +
      schemaOf(parseFormat(descriptor.format)) + "INSERT INTO grp VALUES(0,0);";
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
  if (const Code result = execute(db, "COMMIT;PRAGMA journal_mode=WAL;")) return result;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return codeOf(db, file->pMethods->xSync(file, SQLITE_SYNC_NORMAL));
}

Code EmbeddedEngine::copy(const std::string& from, const std::string& to) {
  const Family source(from);
  if (!source.isWhole()) return kSystem;
  Connection connection;
  if (const Code result = connect(source.database, SQLITE_OPEN_READWRITE, connection)) return result;
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
              [&](const Family& family) { return fillFrom(connection.get(), family); });
}

// Page by page, under a read transaction: the files of an archive that a station is writing could not be
// copied whole. The copy is an archive of its own, with its own name in the logs and no past in any of them.
Code EmbeddedEngine::fillFrom(sqlite3* source, const Family& family) {
  ::unlink(family.shared().c_str());
  for (const std::string& path : {family.database, family.journal})
    if (const Code result = makeEmpty(path)) return result;
  {
    Connection target;
    if (const Code result = connect(family.database, SQLITE_OPEN_READWRITE, target)) return result;
    if (const Code result = execute(target.get(), "PRAGMA journal_mode=MEMORY;PRAGMA synchronous=OFF"))
      return result;
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source, "main");
    if (!backup) return codeOf(target.get(), sqlite3_errcode(target.get()));
    const int stepped = sqlite3_backup_step(backup, -1);
    const int finished = sqlite3_backup_finish(backup);
    if (stepped != SQLITE_DONE) return codeOf(target.get(), finished != SQLITE_OK ? finished : stepped);
  }
  Connection copied;
  if (const Code result = connect(family.database, SQLITE_OPEN_READWRITE, copied)) return result;
  const std::string rename = "UPDATE meta SET uuid='" + newUuid() + "';UPDATE grp SET log=0, seq=0;";
  if (const Code result = execute(copied.get(), rename)) return result;
  return codeOf(copied.get(), sqlite3_wal_checkpoint_v2(copied.get(), "main", SQLITE_CHECKPOINT_TRUNCATE,
                                                        nullptr, nullptr));
}

}  // namespace

std::unique_ptr<Engine> makeEmbeddedEngine(std::function<void()> onWait) {
  return std::make_unique<EmbeddedEngine>(std::move(onWait));
}

}  // namespace store
