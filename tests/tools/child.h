// A forked child that holds what its work has taken until it is killed: a station that dies.
#pragma once

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

namespace test {

// Runs `work` in a child, which stays as `work` left it when that returns true, until kill() or the end of
// this object.
class HoldingChild {
 public:
  template <typename Work>
  explicit HoldingChild(Work work) {
    int ends[2];
    if (::pipe(ends) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // nor does it outlive a test that crashes
      const char answer = work() ? 'y' : 'n';
      if (::write(ends[1], &answer, 1) != 1) ::_exit(1);
      for (;;) ::pause();
    }
    char answer = 'n';
    ready_ = process_ > 0 && ::read(ends[0], &answer, 1) == 1 && answer == 'y';
    ::close(ends[0]);
    ::close(ends[1]);
  }
  ~HoldingChild() { kill(); }
  HoldingChild(const HoldingChild&) = delete;
  HoldingChild& operator=(const HoldingChild&) = delete;

  bool ready() const { return ready_; }

  // SIGKILL; returns when the process is gone, and with it its locks.
  void kill() {
    const pid_t process = std::exchange(process_, -1);
    if (process <= 0) return;
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
  }

 private:
  pid_t process_ = -1;
  bool ready_ = false;
};

}  // namespace test
