#include "store/embedded/vfs.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

namespace store::embedded {
namespace {

struct Layer {
  sqlite3_vfs vfs;
  sqlite3_vfs* base;
  std::string_view own, other;  // ends of the journals' names
  int otherFlag;

  Layer(const char* name, std::string_view ownEnd, std::string_view otherEnd, int flagOfOther);
};

constexpr std::string_view kLog = ".ISD-wal", kRollback = ".ISD-journal", kJournal = ".ISF";

const Layer& of(sqlite3_vfs* vfs) { return *static_cast<const Layer*>(vfs->pAppData); }

std::string fileOf(std::string_view journal, std::string_view end) {
  return std::string(journal.substr(0, journal.size() - end.size())).append(kJournal);
}

int openFile(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  const Layer& layer = of(vfs);
  sqlite3_vfs* base = layer.base;
  file->pMethods = nullptr;
  if (flags & layer.otherFlag) return SQLITE_CANTOPEN;
  if (!(flags & (SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL)))
    return base->xOpen(base, name, file, flags, outFlags);
  // The layer below keeps the pointer to the name, so the name lives behind its own bytes of the file.
  const std::string journal = fileOf(name, layer.own);
  char* kept = reinterpret_cast<char*>(file) + base->szOsFile;
  std::memcpy(kept, journal.c_str(), journal.size() + 1);
  return base->xOpen(base, kept, file, flags & ~SQLITE_OPEN_CREATE, outFlags);
}

int deleteFile(sqlite3_vfs* vfs, const char* name, int syncDirectory) {
  const Layer& layer = of(vfs);
  if (!std::string_view(name).ends_with(layer.own))
    return layer.base->xDelete(layer.base, name, syncDirectory);
  const std::string journal = fileOf(name, layer.own);
  return ::truncate(journal.c_str(), 0) == 0 || errno == ENOENT ? SQLITE_OK : SQLITE_IOERR_DELETE;
}

int accessFile(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
  const Layer& layer = of(vfs);
  *result = 0;
  if (std::string_view(name).ends_with(layer.other)) return SQLITE_OK;
  if (!std::string_view(name).ends_with(layer.own))
    return layer.base->xAccess(layer.base, name, flags, result);
  return layer.base->xAccess(layer.base, fileOf(name, layer.own).c_str(), flags, result);
}

Layer::Layer(const char* name, std::string_view ownEnd, std::string_view otherEnd, int flagOfOther)
    : vfs(*sqlite3_vfs_find(nullptr)),
      base(sqlite3_vfs_find(nullptr)),
      own(ownEnd),
      other(otherEnd),
      otherFlag(flagOfOther) {
  vfs.pNext = nullptr;
  vfs.zName = name;
  vfs.pAppData = this;
  vfs.szOsFile = base->szOsFile + base->mxPathname + 1;
  vfs.xOpen = openFile;
  vfs.xDelete = deleteFile;
  vfs.xAccess = accessFile;
  sqlite3_vfs_register(&vfs, 0);
}

}  // namespace

const char* fileLayer(Journal journal) {
  // SQLite's list of layers belongs to the process, so there is one of each.
  static Layer ahead("archives", kLog, kRollback, SQLITE_OPEN_MAIN_JOURNAL);
  static Layer rollback("shared-archives", kRollback, kLog, SQLITE_OPEN_WAL);
  return (journal == Journal::ahead ? ahead : rollback).vfs.zName;
}

}  // namespace store::embedded
