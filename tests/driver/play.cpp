#include "driver/play.h"

#include <sstream>

#include "app/units.h"

namespace test {

driver::DriverOptions optionsFor(const std::filesystem::path& directory) {
  return {.session = {.dataDirectory = directory,
                      .programDirectory = directory,
                      .offeredData = TARVEX_SOURCE_DIR "/data",
                      .clock = common::Clock("15/04/2003", "10:30")},
          .units = tarvex::units()};
}

Played run(const driver::DriverOptions& options, std::string_view script) {
  std::istringstream in{std::string(script)};
  std::ostringstream out;
  Played played;
  played.code = driver::Driver(options, in, out).run();
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    played.answers.push_back(nlohmann::json::parse(line, nullptr, false));
    played.lines.push_back(std::move(line));
  }
  return played;
}

std::vector<nlohmann::json> play(const std::filesystem::path& directory, std::string_view script) {
  return run(optionsFor(directory), script).answers;
}

}  // namespace test
