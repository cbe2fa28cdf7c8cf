#include "tools/faults.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <map>
#include <stdexcept>

#include "tools/scratch.h"

namespace test {
namespace {

using Environment = std::map<std::string, std::string>;
constexpr std::chrono::seconds kLimit(60);

[[noreturn]] void become(const std::vector<std::string>& command, const Environment& environment,
                         int output) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::dup2(output, 1);
  ::dup2(output, 2);
  for (const auto& [name, value] : environment) ::setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

// All that comes out of `input` until it ends; false when that takes longer than the limit.
bool readAll(int input, std::string& output) {
  const auto end = std::chrono::steady_clock::now() + kLimit;
  for (;;) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd ready{input, POLLIN, 0};
    if (left.count() <= 0 || ::poll(&ready, 1, static_cast<int>(left.count())) == 0) return false;
    char buffer[4096];
    const ssize_t size = ::read(input, buffer, sizeof buffer);
    if (size <= 0) return true;
    output.append(buffer, static_cast<std::size_t>(size));
  }
}

Outcome runWith(const std::vector<std::string>& command, const Environment& environment) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const pid_t process = ::fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process == 0) become(command, environment, ends[1]);
  ::close(ends[1]);
  Outcome outcome;
  const bool ended = readAll(ends[0], outcome.output);
  ::close(ends[0]);
  if (!ended) ::kill(process, SIGKILL);
  int status = 0;
  ::waitpid(process, &status, 0);
  outcome.status = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  if (!ended) outcome.status = Outcome::kHung;
  if (outcome.status == 127) throw std::runtime_error("cannot be started: " + command.at(0));
  return outcome;
}

}  // namespace

Outcome run(const std::vector<std::string>& command) { return runWith(command, {}); }

Outcome runUnderFault(const std::vector<std::string>& command, const std::string& directory,
                      const Fault& fault) {
  const Scratch scratch;
  const std::string report = scratch / "report";
  constexpr const char* kModes[] = {"count", "kill", "fail"};
  Environment environment{
      {"LD_PRELOAD", TARVEX_FAULTIO},
      {"ASAN_OPTIONS", "verify_asan_link_order=0"},  // the shim stands before its library
      {"FAULTIO_DIR", directory},
      {"FAULTIO_MODE", kModes[static_cast<int>(fault.mode)]},
      {"FAULTIO_AT", std::to_string(fault.at)},
      {"FAULTIO_WHEN", fault.when},
      {"FAULTIO_ERRNO", fault.error},
      {"FAULTIO_STICKY", fault.everAfter ? "1" : "0"},
      {"FAULTIO_OPS", fault.operations},
      {"FAULTIO_REPORT", report},
  };
  if (!fault.files.empty()) environment["FAULTIO_MATCH"] = fault.files;
  if (!fault.trace.empty()) environment["FAULTIO_TRACE"] = fault.trace;
  if (!fault.acknowledged.empty()) environment["FAULTIO_ACK"] = fault.acknowledged;
  Outcome outcome = runWith(command, environment);

  std::ifstream file(report);
  for (std::string word; file >> word;)
    if (word == "ops") file >> outcome.operations;
  return outcome;
}

}  // namespace test
