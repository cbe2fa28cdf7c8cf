// Where the program lies, and what it finds beside itself.
#pragma once

#include <filesystem>

namespace common {

// The directory of the running program.
std::filesystem::path programDirectory();

// The tables of a new installation: `share/tarvex` beside the directory of an installed program, otherwise
// `sources`, from which a program was built that runs where it was built.
std::filesystem::path offeredData(const std::filesystem::path& sources);

}  // namespace common
