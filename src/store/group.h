// A group: writes to several archives of one company that take effect as a whole or not at all, at the cost
// of one flush.
#pragma once

#include <string>
#include <string_view>

#include "store/record_store.h"

namespace store {

// Opened after the last question to the user and before the first lock of the operation; no box is shown
// while it stands. Inside it
// - writes go to memory, reads of this station see them merged with the archives (next and previous too);
// - VmxFlush does nothing, VmxClose marks the handle, VmxLock acts at once, VmxUnlock is put off to the end
//   (a new lock of the same key cancels it);
// - Put::add holds an intent on its key until the end, which other stations' writes honour;
// - a code of 11 or more, kept from CheckArchiveResult or from any operation, spoils the group: nothing of it
//   is written, and commit() reports it once, with operation `write`, the group's archive and position.
// Groups of one company exclude each other among stations (the lock GROUP of the log).
//
// Between processes: either everything of a group is seen after a crash, or nothing.
class Group {
 public:
  // `log` is the group log's path without extension of the company ("<directory>/AB--"); `archive` and
  // `position` are those of the report.
  Group(RecordStore& store, std::string_view log, int archive, int position);
  ~Group();  // drops what was not committed and gives the locks back
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;

  // Makes everything durable and visible, then gives the locks back. False: nothing was written, the failure
  // has been reported, LastArchiveResult tells it.
  bool commit();

 private:
  RecordStore& store_;
  bool open_ = true;
};

}  // namespace store
