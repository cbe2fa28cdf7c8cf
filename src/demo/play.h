// Plays the demonstration: a company drawn from a seed, entered through the forms of the driver, with its
// registers left as text files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace demo {

struct Played {
  std::vector<std::string> faults;             // commands that failed, boxes of refusal, violated invariants
  std::vector<std::filesystem::path> printed;  // the files written
  int invoices = 0;                            // of sales and purchases, with the credit notes
  int receipts = 0;
};

// `folder` gets the archives (in "archivi") and the prints; it is made when missing. Nothing that stands in
// it is overwritten but the prints: a second play in one folder is refused by the program as a company that
// exists. `offered` is the directory of what a new installation holds.
Played play(const std::filesystem::path& folder, const std::filesystem::path& offered, unsigned seed);

}  // namespace demo
