#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include "driver/commands.h"
#include "driver/driver.h"
#include "ui/user.h"

namespace driver::command {
namespace {

using Json = nlohmann::ordered_json;

void report(Call& call, tarvex::Chosen chosen) {
  if (chosen == tarvex::Chosen::unknown) call.fail("no such entry: " + call.word(1));
  if (chosen == tarvex::Chosen::unavailable) call.fail("not in this program: " + call.word(1));
}

// While a modal form stands, the menus are out of reach.
bool menusInReach(Call& call) {
  const ui::Form* modal = call.driver.modal();
  if (modal) call.fail("a modal form stands: " + modal->name());
  return !modal;
}

bool isFirstCompany(Call& call) {
  const auto forms = call.driver.forms();
  return call.word(1) == "APRIAZ" && forms.size() == 1 && forms.front()->name() == "SCELTA";
}

}  // namespace

void start(Call& call) { call.driver.start(); }

void open(Call& call) {
  if (!isFirstCompany(call) && !menusInReach(call)) return;
  const std::string mode = call.size() > 2 ? call.word(2) : std::string();
  report(call, call.driver.frame().openUnit(call.word(1), mode));
}

void menu(Call& call) {
  if (menusInReach(call)) report(call, call.driver.frame().choose(call.word(1)));
}

void forms(Call& call) {
  Json names = {"MDIForm1"};
  for (const ui::Form* form : call.driver.forms()) names.push_back(form->name());
  call.add("forms", std::move(names));
}

void top(Call& call) {
  ui::Form* form = call.form(call.word(1));
  if (!form || form == call.driver.top() || !menusInReach(call)) return;
  call.driver.bringToFront(*form);
}

void close(Call& call) {
  if (ui::Form* form = call.driver.top())
    ui::User(*form).close();
  else
    call.driver.quit();
}

void quit(Call& call) { call.driver.quit(); }

void answer(Call& call) {
  if (call.size() == 1) return call.driver.answers.clear();
  for (const auto known : {ui::Answer::ok, ui::Answer::cancel, ui::Answer::yes, ui::Answer::no})
    if (call.word(1) == ui::nameOf(known)) return call.driver.answers.push_back(known);
  call.fail("no such answer: " + call.word(1));
}

void file(Call& call) {
  if (call.size() > 1)
    call.driver.files.emplace_back(call.word(1));
  else
    call.driver.files.emplace_back(std::nullopt);
}

void session(Call& call) {
  const tarvex::Session& session = call.driver.session();
  Json json;
  json["DataDirectory"] = session.DataDirectory;
  json["ServerProgramPath"] = session.ServerProgramPath;
  json["CompanyCode"] = session.CompanyCode;
  json["CompanyName"] = session.CompanyName;
  json["WorkYear"] = session.WorkYear;
  json["YearDateMask"] = session.YearDateMask;
  json["YearStartDate"] = session.YearStartDate;
  json["CurrentWarehouse"] = session.CurrentWarehouse;
  json["WarehouseCount"] = session.WarehouseCount;
  json["TodayText"] = session.TodayText;
  json["CurrentUser"] = session.CurrentUser;
  json["PrintFontName"] = session.PrintFontName;
  json["PrintSize"] = session.PrintSize;
  json["PageLength"] = session.PageLength;
  json["MonthNames"] = std::vector<std::string>(session.MonthNames.begin() + 1, session.MonthNames.end());
  json["EuroRate"] = session.EuroRate;
  json["ExitBackupRequested"] = session.ExitBackupRequested;
  json["AgentMode"] = session.AgentMode;
  call.add("session", std::move(json));
}

void log(Call& call) {
  const tarvex::Session& session = call.driver.session();
  if (session.CompanyCode.empty()) return call.fail("no company is open");
  std::ifstream file(session.logPath(), std::ios::binary);
  call.add("log", std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace driver::command
