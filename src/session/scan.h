// Reading an archive from its first record to its last.
#pragma once

#include "session/session.h"

namespace tarvex {

// Calls `each` with the handle on every record, by primary key. False when the archive cannot be read to its
// end, which has been reported.
template <class R, class Each>
bool scan(Session& session, int openPosition, int closePosition, int readPosition, const Each& each) {
  OpenArchive<R> archive(session, openPosition, closePosition);
  if (!archive->isOpen()) return false;
  archive->bof(0);
  while (archive->next(0) == store::kOk) each(*archive);
  if (session.store.LastArchiveResult == store::kNotFound) return true;
  session.CheckArchiveResult(store::Operation::read, archives::Layout<R>::code, readPosition);
  return false;
}

}  // namespace tarvex
