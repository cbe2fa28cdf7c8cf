// A directory of a test's own, empty at the start and removed at the end.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace test {

class Scratch {
 public:
  // Below TMPDIR when that is set; else in memory where there is such a place, for the tests flush thousands
  // of times.
  Scratch() {
    const bool memory = ::getenv("TMPDIR") == nullptr && ::access("/dev/shm", W_OK) == 0;
    const std::filesystem::path parent = memory ? "/dev/shm" : std::filesystem::temp_directory_path();
    std::string name = (parent / "tarvex-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch directory: " + name);
    path_ = name;
  }
  ~Scratch() {
    std::error_code ignored;  // what a test leaves behind must not hide why it failed
    std::filesystem::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace test
