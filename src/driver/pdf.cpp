#include "driver/pdf.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string_view>
#include <system_error>
#include <utility>

namespace driver {
namespace {

using Json = nlohmann::ordered_json;

Json pageJson(const ui::Page& page) {
  Json lines = Json::array(), pictures = Json::array();
  for (const auto& line : page.lines())
    lines.push_back({{"text", line.text}, {"size", line.size}, {"bold", line.bold}, {"top", line.top}});
  for (const auto& picture : page.pictures())
    pictures.push_back({{"path", picture.path},
                        {"left", picture.left},
                        {"top", picture.top},
                        {"width", picture.width},
                        {"height", picture.height}});
  return {{"lines", std::move(lines)}, {"pictures", std::move(pictures)}};
}

std::string reportJson(const ui::Report& report) {
  Json pages = Json::array();
  for (const auto& page : report.pages()) pages.push_back(pageJson(page));
  const ui::Setup& setup = report.setup();
  const Json json = {{"title", report.title()},      {"font", setup.font},
                     {"size", setup.size},           {"pageLines", setup.pageLines},
                     {"landscape", setup.landscape}, {"margin", report.margin()},
                     {"pages", std::move(pages)}};
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// A program that is gone must not take this one with it, as writing to its pipe would.
void writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = send(descriptor, text.data(), text.size(), MSG_NOSIGNAL);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;  // the program has stopped reading: its exit code tells
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

// Runs the program with `input` on its standard input and its own output thrown away; its exit code, or
// -1 when it could not be run.
int runWith(const std::string& program, const std::string& argument, std::string_view input) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  char* const arguments[] = {const_cast<char*>(program.c_str()), const_cast<char*>(argument.c_str()),
                             nullptr};
  pid_t child = 0;
  const int failed = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[0]);
  if (!failed) writeAll(ends[1], input);
  close(ends[1]);
  if (failed) return -1;
  int status = 0;
  while (waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

std::string writePdf(const std::filesystem::path& program, const ui::Report& report,
                     const std::string& path) {
  std::error_code error;
  if (program.empty() || !std::filesystem::is_regular_file(program, error))
    return "the program that writes PDF files is not there";
  const int code = runWith(program.string(), path, reportJson(report));
  if (code != 0) return "the program that writes PDF files failed";
  if (!std::filesystem::is_regular_file(path, error)) return "no file was written: " + path;
  return {};
}

}  // namespace driver
