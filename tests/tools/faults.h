// Programs under a failing disk: runs one with faultio (faultio.c) preloaded and tells how it ended.
#pragma once

#include <string>
#include <vector>

namespace test {

struct Fault {
  enum class Mode { count, kill, fail };
  Mode mode = Mode::count;
  int at = 0;                   // the operation that is struck, from 1
  std::string when = "before";  // kill: before, mid (a torn write), after
  std::string error = "EIO";    // fail: what the operation answers
  bool everAfter = false;       // fail: all later operations, too
  std::string operations =
      "write,sync,trunc,rename,unlink,create";  // what is counted; also extend open read lock
  std::string files;                            // only names that match this glob
  std::string trace;                            // record all operations there, for power_loss.h
  std::string
      acknowledged;  // the file outside the directory where the program says what is done; never struck
};

struct Outcome {
  int status = -1;     // the exit status; minus the signal's number when one ended it; kHung
  int operations = 0;  // that were counted; 0 when the program was killed
  std::string output;  // standard output and error

  static constexpr int kHung = 1000;
};

// Runs `command` to its end (a minute at most) and, but for run(), strikes the operations that it makes below
// `directory`. Throws std::runtime_error when it cannot be started.
Outcome run(const std::vector<std::string>& command);
Outcome runUnderFault(const std::vector<std::string>& command, const std::string& directory,
                      const Fault& fault);

}  // namespace test
