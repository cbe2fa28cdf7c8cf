#include "demo/play.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/units.h"
#include "common/text.h"
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

// "Registro iva vendite" to "registro-iva-vendite-1.txt", numbered by the prints of that title.
std::string fileNameOf(const std::string& title, const Played& played) {
  std::string name = common::lower(title) + "-";
  std::replace(name.begin(), name.end(), ' ', '-');
  const auto before = std::count_if(
      played.printed.begin(), played.printed.end(),
      [&](const std::filesystem::path& path) { return path.filename().string().starts_with(name); });
  return name + std::to_string(before + 1) + ".txt";
}

void keepReport(const json& answer, const std::filesystem::path& folder, Played& played) {
  const std::filesystem::path path = folder / fileNameOf(answer["title"], played);
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
  played.invoices = static_cast<int>(company.invoices.size() + company.purchases.size());
  played.receipts = static_cast<int>(company.receipts.size());
  std::istringstream commands(script);
  for (std::string command, line; std::getline(commands, command) && std::getline(out, line);) {
    const json answer = json::parse(line);
    judge(answer, command, played);
    if (answer.contains("pages")) keepReport(answer, folder, played);
  }
  return played;
}

}  // namespace demo
