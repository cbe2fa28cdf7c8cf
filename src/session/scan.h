// Reading an archive from its first record to its last.
#pragma once

#include "session/session.h"

namespace tarvex {

// Calls `each` with the handle on every record in the order of `index` (0: the primary key). False when the
// archive cannot be read to its end, which has been reported.
template <class R, class Each>
bool scanBy(Session& session, int index, int openPosition, int closePosition, int readPosition,
            const Each& each) {
  OpenArchive<R> archive(session, openPosition, closePosition);
  if (!archive->isOpen()) return false;
  archive->bof(index);
  while (archive->next(index) == store::kOk) each(*archive);
  if (session.store.LastArchiveResult == store::kNotFound) return true;
  session.CheckArchiveResult(store::Operation::read, archives::Layout<R>::code, readPosition);
  return false;
}

template <class R, class Each>
bool scan(Session& session, int openPosition, int closePosition, int readPosition, const Each& each) {
  return scanBy<R>(session, 0, openPosition, closePosition, readPosition, each);
}

}  // namespace tarvex
