#include "driver/commands.h"
#include "driver/control_json.h"
#include "driver/driver.h"
#include "driver/pdf.h"
#include "driver/words.h"
#include "session/checks.h"
#include "ui/lookup.h"
#include "ui/user.h"

namespace driver::command {
namespace {

using Json = nlohmann::ordered_json;

// The frame shows its status bar: panel(1) to panel(8).
void stateOfFrame(Call& call) {
  call.add("form", "MDIForm1");
  call.add("title", tarvex::kProduct);
  call.add("modal", false);
  Json controls = Json::array();
  for (int panel = 1; panel <= 8; ++panel) {
    Json control;
    control["name"] = "panel(" + std::to_string(panel) + ")";
    control["caption"] = "";
    control["kind"] = "label";
    control["text"] = call.driver.panel(panel);
    control["enabled"] = true;
    control["visible"] = true;
    controls.push_back(std::move(control));
  }
  call.add("controls", std::move(controls));
}

// The N-th last report, N being the word at `at`, 1 when it was left out; null when there is none.
const Printed* printed(Call& call, std::size_t at) {
  const auto& all = call.driver.printed();
  const auto back = call.size() > at ? wholeNumber(call.word(at)) : 1;
  if (back && *back >= 1 && static_cast<std::size_t>(*back) <= all.size())
    return &all[all.size() - static_cast<std::size_t>(*back)];
  call.fail(all.empty() ? "nothing has been printed" : "no such report: " + call.word(at));
  return nullptr;
}

}  // namespace

void state(Call& call) {
  if (call.size() > 1 ? call.word(1) == "MDIForm1" : !call.driver.top()) return stateOfFrame(call);
  const ui::Form* form = call.size() > 1 ? call.form(call.word(1)) : call.form();
  if (!form) return;
  call.add("form", form->name());
  call.add("title", form->title());
  call.add("modal", call.driver.isModal(*form));
  call.add("controls", controlsOf(*form));
}

void value(Call& call) {
  ui::Form* form = call.form();
  if (!form) return;
  const ui::Found found = ui::find(*form, call.word(1));
  if (!found.control || found.control->kind().empty()) return call.fail("no such control: " + call.word(1));
  if (found.onOtherPage()) {
    ui::Grid& grid = found.column->grid();
    if (!ui::User(*form).turn(grid, (found.line - 1) / grid.rows()))
      return call.fail("the page does not turn");
  }
  call.add("control", toJson(*found.control));
}

void report(Call& call) {
  const Printed* found = printed(call, 1);
  if (!found) return;
  Json pages = Json::array();
  for (const auto& page : found->report->pages()) pages.push_back(found->report->textOf(page));
  call.add("title", found->report->title());
  call.add("device", found->device);
  call.add("pages", std::move(pages));
}

void reports(Call& call) { call.add("count", call.driver.printed().size()); }

void pdf(Call& call) {
  const Printed* found = printed(call, 1);
  if (!found) return;
  const auto& program = call.driver.options().pdfProgram;
  if (const std::string error = writePdf(program, *found->report, call.word(2)); !error.empty())
    call.fail(error);
}

void sheet(Call& call) {
  const ui::Sheet* filled = call.driver.lastSheet();
  if (!filled) return call.fail("no sheet has been filled");
  Json cells = Json::array();
  for (const auto& row : filled->rows) {
    Json shown = Json::array();
    for (const ui::SheetCell& cell : row) shown.push_back(cell.shown());
    cells.push_back(std::move(shown));
  }
  call.add("title", filled->title);
  call.add("cells", std::move(cells));
}

}  // namespace driver::command
