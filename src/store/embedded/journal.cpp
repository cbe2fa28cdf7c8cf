#include "store/embedded/journal.h"

#include <sqlite3.h>
#include <sys/statfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>

#include "store/errors.h"

namespace store::embedded {
namespace {

constexpr int kVersions = 18;  // where the header has the versions to write and to read with

// A database file as SQLite's own layer opens it: a descriptor of our own would, when it is closed, take away
// the locks that this process holds on the file.
class RawFile {
 public:
  ~RawFile() {
    if (file_->pMethods) file_->pMethods->xClose(file_);
  }
  int open(const std::string& path) {
    name_ = path + std::string(2, '\0');  // the layer looks for parameters behind the name's end
    constexpr int kFlags = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READWRITE;
    return layer_->xOpen(layer_, name_.c_str(), file_, kFlags, nullptr);
  }
  int read(void* bytes, int size) { return file_->pMethods->xRead(file_, bytes, size, kVersions); }
  int write(const void* bytes, int size) {
    for (const int lock : {SQLITE_LOCK_SHARED, SQLITE_LOCK_RESERVED, SQLITE_LOCK_EXCLUSIVE})
      if (const int result = file_->pMethods->xLock(file_, lock); result != SQLITE_OK) return result;
    const int result = file_->pMethods->xWrite(file_, bytes, size, kVersions);
    return result == SQLITE_OK ? file_->pMethods->xSync(file_, SQLITE_SYNC_NORMAL) : result;
  }
  // To be asked at once after a failure. SQLite's result alone does not tell a full disk from a broken one.
  Code codeOf(int result) const {
    if (result == SQLITE_OK) return kOk;
    if (result == SQLITE_FULL) return kDiskFull;
    if (result == SQLITE_NOMEM || result == SQLITE_IOERR_NOMEM) return kNoMemory;
    if (result == SQLITE_BUSY) return kSystem;
    if (result == SQLITE_IOERR_SHORT_READ) return kDisk;
    const int cause = layer_->xGetLastError(layer_, 0, nullptr);
    return cause ? codeOfErrno(cause) : kDisk;
  }

 private:
  sqlite3_vfs* layer_ = sqlite3_vfs_find(nullptr);
  std::unique_ptr<std::max_align_t[]> room_{
      new std::max_align_t[static_cast<std::size_t>(layer_->szOsFile) / sizeof(std::max_align_t) + 1]()};
  sqlite3_file* file_ = reinterpret_cast<sqlite3_file*>(room_.get());
  std::string name_;
};

}  // namespace

Code readJournal(const std::string& database, Journal& journal) {
  RawFile file;
  if (const int result = file.open(database); result != SQLITE_OK) return file.codeOf(result);
  std::array<unsigned char, 2> versions{};
  if (const int result = file.read(versions.data(), versions.size()); result != SQLITE_OK)
    return file.codeOf(result);
  // The second one tells how the database is read, and so what its journal is. The first may differ from it
  // where a change of the journal was cut short: the journal was empty by then, and serves either way.
  journal = static_cast<Journal>(versions[1]);
  const auto known = [](unsigned char version) { return version == 1 || version == 2; };
  return known(versions[0]) && known(versions[1]) ? kOk : kDisk;
}

Code writeJournal(const std::string& database, Journal journal) {
  RawFile file;
  if (const int result = file.open(database); result != SQLITE_OK) return file.codeOf(result);
  const auto version = static_cast<unsigned char>(journal);
  const std::array<unsigned char, 2> versions{version, version};
  return file.codeOf(file.write(versions.data(), versions.size()));
}

bool isOnNetwork(const std::string& path) {
  // NFS, SMB (three generations), AFS, Coda, 9P, Ceph, Lustre, OCFS2, GFS2, and FUSE, behind which anything
  // may be.
  constexpr std::array<unsigned, 12> kNetworks{0x6969,     0x517B,     0xFF534D42, 0xFE534D42,
                                               0x5346414F, 0x73757245, 0x01021997, 0x00C36400,
                                               0x0BD00BD0, 0x7461636F, 0x01161970, 0x65735546};
  struct statfs system {};
  if (::statfs(path.c_str(), &system) != 0) return false;
  return std::find(kNetworks.begin(), kNetworks.end(), static_cast<unsigned>(system.f_type)) !=
         kNetworks.end();
}

}  // namespace store::embedded
