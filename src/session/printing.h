// What every print screen does around its report: the font and the sheet of the session, the company above
// the title, the way to the preview or to the printer.
#pragma once

#include <functional>
#include <memory>

#include "session/session.h"
#include "ui/paged.h"
#include "ui/report.h"
#include "ui/sheet.h"

namespace tarvex {

ui::Setup printSetup(const Session& session);

// The open company above the title when `company` is on; `position` reports that it cannot be read.
ui::Letterhead letterhead(Session& session, bool company, int blankLines, int position);

// Lays the report out to its end, and tells how far it is: `done` of about `all`. False: the user has stopped
// it.
bool layOutWhole(ui::Desk& desk, const ui::Report& report, const std::function<std::size_t()>& done,
                 std::size_t all);

// Opens the cells in the spreadsheet; Foglio shows them again.
void showSheet(Session& session, ui::Sheet sheet);

// False: it was to be printed, and was not.
bool showReport(ui::Desk& desk, std::shared_ptr<const ui::Report> report, bool preview);

}  // namespace tarvex
