#include "store/embedded/vfs.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

namespace store::embedded {
namespace {

constexpr std::string_view kLog = ".ISD-wal", kRollback = ".ISD-journal", kJournal = ".ISF";

sqlite3_vfs* baseOf(sqlite3_vfs* layer) { return static_cast<sqlite3_vfs*>(layer->pAppData); }

std::string journalOf(std::string_view log) {
  return std::string(log.substr(0, log.size() - kLog.size())).append(kJournal);
}

int openFile(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  sqlite3_vfs* base = baseOf(layer);
  file->pMethods = nullptr;
  if (flags & SQLITE_OPEN_MAIN_JOURNAL) return SQLITE_CANTOPEN;
  if (!(flags & SQLITE_OPEN_WAL)) return base->xOpen(base, name, file, flags, outFlags);
  // The layer below keeps the pointer to the name, so the name lives behind its own bytes of the file.
  const std::string journal = journalOf(name);
  char* kept = reinterpret_cast<char*>(file) + base->szOsFile;
  std::memcpy(kept, journal.c_str(), journal.size() + 1);
  return base->xOpen(base, kept, file, flags & ~SQLITE_OPEN_CREATE, outFlags);
}

int deleteFile(sqlite3_vfs* layer, const char* name, int syncDirectory) {
  if (!std::string_view(name).ends_with(kLog))
    return baseOf(layer)->xDelete(baseOf(layer), name, syncDirectory);
  return ::truncate(journalOf(name).c_str(), 0) == 0 || errno == ENOENT ? SQLITE_OK : SQLITE_IOERR_DELETE;
}

int accessFile(sqlite3_vfs* layer, const char* name, int flags, int* result) {
  sqlite3_vfs* base = baseOf(layer);
  *result = 0;
  if (std::string_view(name).ends_with(kRollback)) return SQLITE_OK;
  if (!std::string_view(name).ends_with(kLog)) return base->xAccess(base, name, flags, result);
  return base->xAccess(base, journalOf(name).c_str(), flags, result);
}

struct Layer {
  sqlite3_vfs vfs;

  Layer() : vfs(*sqlite3_vfs_find(nullptr)) {
    sqlite3_vfs* base = sqlite3_vfs_find(nullptr);
    vfs.pNext = nullptr;
    vfs.zName = "archives";
    vfs.pAppData = base;
    vfs.szOsFile = base->szOsFile + base->mxPathname + 1;
    vfs.xOpen = openFile;
    vfs.xDelete = deleteFile;
    vfs.xAccess = accessFile;
    sqlite3_vfs_register(&vfs, 0);
  }
};

}  // namespace

const char* fileLayer() {
  static Layer layer;  // SQLite's list of layers belongs to the process, so there is one
  return layer.vfs.zName;
}

}  // namespace store::embedded
