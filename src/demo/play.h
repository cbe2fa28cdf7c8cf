// Plays the demonstration: a company drawn from a seed, entered through the forms of the driver, with its
// registers left as text and PDF files.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace demo {

struct Played {
  std::vector<std::string> faults;             // commands that failed, boxes of refusal, violated invariants
  std::vector<std::filesystem::path> printed;  // the files written
  int invoices = 0;                            // of sales and purchases, with the credit notes
  int receipts = 0;
};

struct Stage {
  std::filesystem::path archives;         // made when it is missing
  std::filesystem::path prints = {};      // gets the registers; empty: none are kept
  std::filesystem::path pdfProgram = {};  // tarvex-pdf
  std::filesystem::path offered = {};     // what a new installation holds
  unsigned seed = 2026;
  std::function<void(std::size_t done, std::size_t all)> onStep = {};  // after each command
};

// Nothing that stands on the stage is overwritten but the prints: a second play on one stage is refused by
// the program as a company that exists.
Played play(const Stage& stage);

}  // namespace demo
