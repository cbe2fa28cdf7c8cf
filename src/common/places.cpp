#include "common/places.h"

#include <system_error>

namespace common {

std::filesystem::path programDirectory() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::filesystem::path offeredData(const std::filesystem::path& sources) {
  std::error_code error;
  const auto installed = programDirectory().parent_path() / "share" / "tarvex";
  return std::filesystem::is_directory(installed, error) ? installed : sources;
}

}  // namespace common
