#include "session/session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "archives/catalogue.h"
#include "session/startup.h"
#include "session/text_file.h"
#include "ui/form.h"

namespace tarvex {

Session::Session(SessionOptions options, ui::Desk& desk, std::span<const Unit> units)
    : options_(std::move(options)), desk_(desk), units_(units), store(storeOptions()) {}

Session::~Session() = default;

store::StoreOptions Session::storeOptions() {
  store::StoreOptions options;
  bool singleStation = true;
  dataDirectory(options_, singleStation);
  options.share = !singleStation;
  options.logOf = [](std::string_view archive) { return archives::logOf(archive); };
  options.shapeOf = [](std::string_view archive) -> std::optional<store::Shape> {
    const archives::Entry* entry = archives::entryOf(archive);
    if (!entry) return std::nullopt;
    return store::Shape{entry->keyLength, std::string(entry->format)};
  };
  options.onFailure = [this](const store::ArchiveFailure& failure) { showFailure(failure); };
  options.onWait = [this] { desk_.status(2, "Archivio in uso da un'altra postazione"); };
  return options;
}

void Session::showFailure(const store::ArchiveFailure& failure) {
  desk_.beep();
  if (!failure.cause.empty())
    desk_.show({failure.cause, failure.causeTitle, ui::Ask::ok, ui::Icon::critical});
  desk_.show({failure.message, failure.title, ui::Ask::ok, ui::Icon::warning});
  log(failure.logLine);
}

std::string Session::stem(std::string_view prefix) const { return stem(prefix, WorkYear, CompanyCode); }

std::string Session::stem(std::string_view prefix, std::string_view year, std::string_view company) const {
  const archives::Entry* entry = archives::find(prefix);
  if (!entry) throw std::logic_error("no archive of the catalogue: " + std::string(prefix));
  return DataDirectory + archives::nameOf(*entry, year, company);
}

std::string Session::groupLog() const { return DataDirectory + CompanyCode + "--"; }

std::string Session::installationLog() const { return DataDirectory + "--"; }

std::string Session::logPath() const { return DataDirectory + WorkYear + CompanyCode + "--.isx"; }

void Session::log(std::string_view text) {
  constexpr std::string_view rule = "---------------\n";
  std::string entry(rule);
  entry.append(clock().today()).append(" ").append(clock().now()).append("\n");
  entry.append(text).append("\n").append(rule);
  appendText(logPath(), entry);
}

bool Session::knows(std::string_view unit) const {
  return std::any_of(units_.begin(), units_.end(), [&](const Unit& known) { return known.name == unit; });
}

std::unique_ptr<ui::Form> Session::make(std::string_view unit) {
  for (const Unit& known : units_)
    if (known.name == unit) return known.make(*this);
  throw std::logic_error("no unit of the program: " + std::string(unit));
}

std::unique_ptr<ui::Form> Session::make(std::string_view unit, std::string_view mode) {
  AgentMode = mode == "agente" ? 1 : 0;
  std::unique_ptr<ui::Form> form = make(unit);
  form->setMode(mode);
  return form;
}

void Session::open(std::string_view unit, std::string_view mode) {
  for (ui::Form* form : desk_.forms())
    if (form->name() == unit && form->mode() == mode) return desk_.bringToFront(*form);
  desk_.open(make(unit, mode));
}

void Session::run(std::string_view unit, std::string_view mode) {
  const std::unique_ptr<ui::Form> form = make(unit, mode);
  desk_.run(*form);
}

}  // namespace tarvex
