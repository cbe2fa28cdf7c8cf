// tarvex-drive --data DIR [--program DIR] [--offer DIR] [--today dd/mm/yyyy] [--now HH:MM] < script
//
// --offer names the directory of what a new installation holds; without it that is the one installed beside
// the program, or that of the sources.

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "app/units.h"
#include "common/date.h"
#include "common/places.h"
#include "driver/driver.h"
#include "store/files.h"

namespace {

namespace fs = std::filesystem;
using Arguments = std::map<std::string_view, std::string>;

// Exit 1 says that a command was not understood; this one, that there was no session at all.
constexpr int kUnusable = 2;

std::optional<Arguments> readArguments(int count, char** words) {
  Arguments arguments{{"--data", ""}, {"--program", ""}, {"--offer", ""}, {"--today", ""}, {"--now", ""}};
  for (int i = 1; i + 1 < count; i += 2) {
    const auto known = arguments.find(words[i]);
    if (known == arguments.end()) return std::nullopt;
    known->second = words[i + 1];
  }
  if (count % 2 == 0 || arguments["--data"].empty()) return std::nullopt;
  return arguments;
}

bool isTime(std::string_view text) {
  if (text.size() != 5 || text[2] != ':') return false;
  for (const std::size_t at : {0, 1, 3, 4})
    if (text[at] < '0' || text[at] > '9') return false;
  return text.substr(0, 2) < "24" && text[3] < '6';
}

// Makes the directory when it is missing. The returned text says why it cannot be used; empty when it can.
std::string prepare(const fs::path& directory) {
  std::error_code error;
  store::makeDirectory(directory.string(), store::kOwn);
  if (!fs::exists(directory, error)) return "cannot be made";
  if (!fs::is_directory(directory, error)) return "not a directory";
  if (access(directory.c_str(), R_OK | W_OK | X_OK) != 0)
    return std::error_code(errno, std::generic_category()).message();
  return {};
}

std::optional<std::string> optional(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(text);
}

int refuse(const std::string& why) {
  std::cerr << "tarvex-drive: " << why << '\n';
  return kUnusable;
}

}  // namespace

int main(int count, char** words) {
  const auto arguments = readArguments(count, words);
  if (!arguments)
    return refuse(
        "usage: tarvex-drive --data DIR [--program DIR] [--offer DIR] [--today dd/mm/yyyy] [--now HH:MM]");
  const auto& [data, program, offer, today, now] =
      std::tie(arguments->at("--data"), arguments->at("--program"), arguments->at("--offer"),
               arguments->at("--today"), arguments->at("--now"));
  if (!today.empty() && !common::dayExists(today)) return refuse("no day: " + today);
  if (!now.empty() && !isTime(now)) return refuse("no time: " + now);
  if (const std::string why = prepare(data); !why.empty()) return refuse(data + ": " + why);

  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away ends the input, not a posting in the middle
  std::ios::sync_with_stdio(false);
  const driver::DriverOptions options{
      .session = {.dataDirectory = data,
                  .programDirectory = program.empty() ? data : program,
                  .offeredData = offer.empty() ? common::offeredData(TARVEX_DATA_DIR) : fs::path(offer),
                  .clock = common::Clock(optional(today), optional(now))},
      .units = tarvex::units(),
      .pdfProgram = common::programDirectory() / "tarvex-pdf"};
  return driver::Driver(options, std::cin, std::cout).run();
}
