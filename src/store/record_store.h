// The record store: indexed archives, addressed by stem, behind the operations Vmx....
//
// An archive is three files <stem>.ISM, .ISD, .ISF. Its records are packed texts (store/format.h) under a
// primary key that is no field of the record; keys compare byte by byte. Index 0 is the primary key, index N
// the indexed field number N. Every operation returns a result code, kept in LastArchiveResult too; nothing
// throws across this face but std::invalid_argument for an impossible format string.
//
// One RecordStore is one station: it owns its record locks and its handles. Single-threaded.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/format.h"

namespace store {

using Code = std::int16_t;
inline constexpr Code kOk = 0;        // on a search: found exactly
inline constexpr Code kNotFound = 1;  // on next and previous: no further record
inline constexpr Code kExists = 2;    // PutMode::add: the primary key is there already
inline constexpr Code kDiskFull = 11;
inline constexpr Code kNoMemory = 12;
inline constexpr Code kSystem = 13;  // VmxOpen: the files are not there
inline constexpr Code kDisk = 14;
inline constexpr Code kTooManyFiles = 18;

using Handle = int;  // 0 is never valid

enum class Get { search = 1, next = 2, previous = 4 };
enum class Put { write = 0, add = 1, rewrite = 2 };

enum class Operation { create = 1, open, close, write, read, erase, kill };

// What CheckArchiveResult has to tell, ready to be shown.
struct ArchiveFailure {
  Code code = 0;
  std::string cause;       // words of the five codes that have their own ("DISCO PIENO"); empty for others
  std::string causeTitle;  // title of that first, critical box
  std::string message;     // the four lines, joined by a carriage return
  std::string title;       // "Errore durante operazione sugli archivi"
  std::string logLine;     // for the archive log
};

// What an archive is by its catalogue.
struct Shape {
  int keyLength = 0;
  std::string format;
  bool operator==(const Shape&) const = default;
};

// Told during long work how much of it is done, 0 to 1, some times a second.
using Progress = std::function<void(double part)>;

struct StoreOptions {
  // The directory is shared by stations on several machines: its files are kept in a way that needs no memory
  // in common, and are open to the group of the users.
  bool share = false;
  // The name of the group log (without directory) that guards an archive, from the archive's name
  // without directory: "2003ABmc" -> "AB--.grp", "civa" -> "--.grp".
  std::function<std::string(std::string_view archive)> logOf;
  // What the archive of that name ought to be; nothing for a name that is no archive's. Without it an archive
  // is taken for what its own files say.
  std::function<std::optional<Shape>(std::string_view archive)> shapeOf;
  // Called by CheckArchiveResult with a failure to be shown and logged.
  std::function<void(const ArchiveFailure&)> onFailure;
  // Called while VmxLock or a commit waits for another station: first after 300 ms, then every 100 ms.
  std::function<void()> onWait;
};

// What a search, next or previous delivered.
struct Found {
  std::string indexKey, primaryKey, record;
};

struct ArchiveCopy {
  std::string from, to;  // stems
};

class RecordStore {
 public:
  explicit RecordStore(StoreOptions options);
  ~RecordStore();  // settles and closes everything
  RecordStore(const RecordStore&) = delete;
  RecordStore& operator=(const RecordStore&) = delete;

  // Makes the files of an empty archive; does not open. kSystem when they are there already or cannot be
  // made.
  Code VmxCreate(const std::string& stem, int keyLength, const std::string& format);
  Code VmxKill(const std::string& stem);  // removes the three files (and what stood beside them)
  // Whether another station has the archive open. Not to be asked of one that has a handle here.
  bool isOpenElsewhere(const std::string& stem);
  // Copies archives of one company, each to a stem where nothing stands: all of them as they are between the
  // same two groups of any station, which wait meanwhile. The result of each copy, as of VmxCreate; one that
  // fails leaves nothing behind and stops none of the others.
  std::vector<Code> copyArchives(const std::vector<ArchiveCopy>& copies);
  Code VmxOpen(const std::string& stem, Handle& handle);
  Code VmxClose(Handle handle);  // flushes first
  Code VmxFlush(Handle handle);  // durable, and seen by other stations

  Code VmxBOF(Handle handle, int index);  // before the first key of that index
  Code VmxEOF(Handle handle, int index);  // behind its last key
  // search: kOk for an exact hit; kNotFound leaves the position where the key would be, so that next delivers
  // the first greater one. A key longer than its index is cut to it. next and previous move by one on `index`
  // and ignore `key`. On kOk `found` is filled, otherwise left alone.
  Code VmxGet(Handle handle, int index, Get mode, std::string_view key, Found& found);
  Code VmxPut(Handle handle, std::string_view primaryKey, std::string_view record, Put mode);
  Code VmxDelete(Handle handle, std::string_view primaryKey);  // kNotFound when it is not there

  // A record lock of this station, advisory; the record need not exist. kOk: taken (again, if it was this
  // station's already). Otherwise kNotFound: held by another station; the call has slept for a moment, so
  // that the callers' endless loop costs nothing. Locks fall with the process.
  Code VmxLock(Handle handle, std::string_view primaryKey);
  Code VmxUnlock(Handle handle, std::string_view primaryKey);  // harmless when not held

  // The loop `while VmxLock is not 0` of all the callers.
  void spinLock(Handle handle, std::string_view primaryKey);

  const Format& formatOf(Handle handle) const;

  // Writes off what is in the group logs and empties them (idle time, exit, before files are copied).
  Code settle();

  // Maintenance of an archive that this station has not open. First the groups left in the log are brought
  // to their archives, and what the journal holds is written back.
  //
  // VTVal: kOk when the archive is sound: three files, a descriptor that agrees with the database, every
  // record whole under its checksum, every index in order and with an entry for each record and no other.
  // kSystem: a file is missing; kDisk: damage. Other stations may go on.
  Code VTVal(const std::string& stem, const Progress& progress = {});
  // VTRebuild: the keys computed anew from the records, the indexes from the keys, in new files that take the
  // place of the old in one step. A record that is not whole: kDisk, and nothing is changed.
  Code VTRebuild(const std::string& stem, const Progress& progress = {});
  // VTRepair: a new archive in the place of the old with every record whose bytes are whole, wherever they
  // stand, and no other. `report` has a line "Grp=<records kept>" and one "Perso=<key>" for each record that
  // the indexes name and that is lost. kSystem when none of the three files is there.
  // Rebuild and repair answer kSystem, with nothing changed, while another station has the archive open;
  // those that would open it meanwhile wait.
  Code VTRepair(const std::string& stem, std::string& report, const Progress& progress = {});

  Code LastArchiveResult = kOk;

  // Reports the last result, if it is not 0, through onFailure; changes nothing, and the caller carries on.
  // `archive` is the archive's code 1 to 36, `position` the fixed number of the call site. Inside a group a
  // failure is kept for the group's own report.
  void CheckArchiveResult(Operation operation, int archive, int position);

 private:
  friend class Group;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace store
