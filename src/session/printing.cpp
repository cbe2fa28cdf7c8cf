#include "session/printing.h"

#include <utility>

namespace tarvex {

ui::Setup printSetup(const Session& session) {
  return {.font = session.PrintFontName,
          .size = static_cast<double>(session.PrintSize),
          .pageLines = session.PageLength};
}

ui::Letterhead letterhead(Session& session, bool company, int blankLines, int position) {
  ui::Letterhead head{.blankLines = blankLines, .company = {}, .vatNumber = {}};
  if (!company) return head;
  head.company = session.CompanyName;
  session.dataz.search(0, session.CompanyCode);
  session.CheckArchiveResult(store::Operation::read, session.dataz.code, position);
  if (session.store.LastArchiveResult == store::kOk) head.vatNumber = session.dataz.B.partitaiva;
  return head;
}

bool layOutWhole(ui::Desk& desk, const ui::Report& report, const std::function<std::size_t()>& done,
                 std::size_t all) {
  const ui::Busy busy(desk);
  while (report.grow())
    if (!desk.progress(done(), all)) return false;
  return true;
}

void showSheet(Session& session, ui::Sheet sheet) {
  session.LastSheet = std::make_shared<const ui::Sheet>(std::move(sheet));
  session.desk().sheet(session.LastSheet);
}

bool showReport(ui::Desk& desk, std::shared_ptr<const ui::Report> report, bool preview) {
  if (!preview) return desk.print(std::move(report));
  desk.preview(std::move(report));
  return true;
}

}  // namespace tarvex
