// Runs a script of commands in this process and hands back its answers.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "driver/driver.h"

namespace test {

struct Played {
  std::vector<std::string> lines;       // as they were written
  std::vector<nlohmann::json> answers;  // a line that is no JSON object comes out as discarded
  int code = 0;                         // of the program
};

// What a script runs with: the archives and `rr` in `directory`, the project's own tables for a new
// installation, 10:30 of the 15th of April 2003, all the units of the program.
driver::DriverOptions optionsFor(const std::filesystem::path& directory);

Played run(const driver::DriverOptions& options, std::string_view script);

// The answers alone, one for each command.
std::vector<nlohmann::json> play(const std::filesystem::path& directory, std::string_view script);

}  // namespace test
