#include "session/maintenance.h"

#include "common/amount.h"
#include "common/text.h"
#include "ui/desk.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr std::size_t kSteps = 1000;  // of the bar, for each archive

template <class R>
void close(Session& session, archives::Archive<R>& archive, int position) {
  if (!archive.isOpen()) return;
  archive.close();
  session.CheckArchiveResult(Operation::close, archive.code, position);
}

template <class R>
void open(Session& session, archives::Archive<R>& archive, int position) {
  archive.open(session.stem(archives::Layout<R>::prefix));
  session.CheckArchiveResult(Operation::open, archive.code, position);
}

}  // namespace

ArchivesLetGo::ArchivesLetGo(Session& session) : session_(session), company_(session.isCompanyOpen()) {
  close(session, session.dataz, 700);
  close(session, session.civa, 701);
  close(session, session.ct, 702);
  close(session, session.pc, 703);
  close(session, session.pr, 704);
}

ArchivesLetGo::~ArchivesLetGo() {
  open(session_, session_.civa, 705);
  open(session_, session_.dataz, 706);
  if (!company_) return;
  open(session_, session_.ct, 707);
  open(session_, session_.pc, 708);
  open(session_, session_.pr, 709);
}

std::string maintenanceLine(store::Code code, std::string_view archive) {
  const std::string name(archive);
  if (code == store::kOk) return "OK archivio " + name;
  return "ERRORE " + common::numberText(code) + "  su archivio " + name;
}

int maintain(Session& session, std::span<const std::string_view> prefixes, ui::List& list,
             const MaintenanceCall& mend) {
  list.setRows(std::vector<std::vector<std::string>>());
  const ui::Busy busy(session.desk());
  const ArchivesLetGo letGo(session);
  std::vector<std::vector<std::string>> lines;
  int errors = 0;
  for (std::size_t i = 0; i < prefixes.size(); ++i) {
    const auto progress = [&](double part) {
      session.desk().progress(i * kSteps + static_cast<std::size_t>(part * kSteps), prefixes.size() * kSteps);
    };
    progress(0);
    const store::Code code = mend(session.stem(prefixes[i]), progress);
    if (code != store::kOk) ++errors;
    lines.push_back({maintenanceLine(code, prefixes[i])});
    list.setRows(lines);
    list.select(static_cast<int>(i));
  }
  return errors;
}

}  // namespace tarvex
