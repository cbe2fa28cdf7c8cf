// What the screens that mend archives share: the archives let go and taken back, the list of what each call
// answered.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "ui/control.h"

namespace tarvex {

// Lets go of the archives that the session holds open, for as long as it lives; each close and each opening
// is reported.
class ArchivesLetGo {
 public:
  explicit ArchivesLetGo(Session& session);
  ~ArchivesLetGo();
  ArchivesLetGo(const ArchivesLetGo&) = delete;
  ArchivesLetGo& operator=(const ArchivesLetGo&) = delete;

 private:
  Session& session_;
  bool company_;
};

// The line that tells what a maintenance call has answered for an archive.
std::string maintenanceLine(store::Code code, std::string_view archive);

using MaintenanceCall = std::function<store::Code(const std::string& stem, const store::Progress& progress)>;

// Calls `mend` for each archive of the open company and of the installation in that order, with the session's
// archives let go, and shows a line for each in `list`, the last one selected. How many answered an error.
int maintain(Session& session, std::span<const std::string_view> prefixes, ui::List& list,
             const MaintenanceCall& mend);

}  // namespace tarvex
