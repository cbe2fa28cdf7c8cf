#include "demo/play.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "app/units.h"
#include "demo/script.h"
#include "driver/driver.h"
#include "session/text_file.h"

namespace demo {
namespace {

using nlohmann::json;

// A box that refuses or asks has no place in a play; a code without tax tells its description, and that is
// all.
bool expected(const json& box) { return box["title"] == "CODICE IVA"; }

void judge(const json& answer, std::string_view command, Played& played) {
  const auto fault = [&](const std::string& why) {
    played.faults.push_back(std::string(command) + ": " + why);
  };
  if (!answer["ok"]) fault(answer["error"]);
  for (const json& box : answer["boxes"])
    if (!expected(box)) fault(box["text"]);
  if (answer.contains("violations"))
    for (const json& violation : answer["violations"]) fault(violation.dump());
}

void keepReport(const json& answer, const std::filesystem::path& folder, Played& played) {
  const std::string number = std::to_string(played.printed.size() + 1);
  const std::filesystem::path path = folder / ("registro-iva-vendite-" + number + ".txt");
  std::string text;
  for (const json& page : answer["pages"]) {
    for (const json& line : page) text += line.get<std::string>() + '\n';
    text += '\f';
  }
  std::filesystem::remove(path);
  if (!tarvex::appendText(path.string(), text)) played.faults.push_back(path.string() + " cannot be written");
  played.printed.push_back(path);
}

}  // namespace

Played play(const std::filesystem::path& folder, const std::filesystem::path& offered, unsigned seed) {
  const Company company = drawCompany(seed);
  const std::filesystem::path archives = folder / "archivi";
  std::filesystem::create_directories(archives);
  const std::string script = scriptOf(company);
  std::istringstream in(script);
  std::stringstream out;
  driver::DriverOptions options;
  options.session = {archives, archives, offered, common::Clock("31/03/" + company.year, "12:00")};
  options.units = tarvex::units();
  driver::Driver(options, in, out).run();

  Played played;
  played.invoices = static_cast<int>(company.invoices.size());
  std::istringstream commands(script);
  for (std::string command, line; std::getline(commands, command) && std::getline(out, line);) {
    const json answer = json::parse(line);
    judge(answer, command, played);
    if (answer.contains("pages")) keepReport(answer, folder, played);
  }
  return played;
}

}  // namespace demo
