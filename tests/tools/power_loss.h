// What a power cut may leave of a directory: builds such directories from the operations that faultio
// recorded (Fault::trace of faults.h), for each moment of the recording, and has each of them checked.
//
// A write is certain once its file is synced after it, a name (made, changed or removed) once its directory
// is. What happens to the rest is one of six policies:
//   none    nothing of it survives
//   all     everything does: what kill -9 leaves
//   prefix  all up to a random moment, in order
//   subset  each write or not, at random, torn at sectors of 512 bytes; names up to a random moment
//   tail    all names and lengths, no data
//   ext4    as none, but syncing any file makes all earlier names certain
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace test {

struct PowerLoss {
  std::string base;   // the directory as it was before the recording
  std::string trace;  // the recording
  std::string work;   // where the directories are built, one at a time, and removed again
  int every = 1;      // only each n-th moment
  int seeds = 2;      // images for each moment by prefix, and by subset
  // Opens the directory as the next start would; `acknowledged` is what the program had said to be done by
  // then. Returns what is wrong, or nothing.
  std::function<std::string(const std::string& directory, const std::string& acknowledged)> check;
};

struct PowerLossResult {
  int images = 0;
  std::vector<std::string> failures;  // moment, policy, seed and what was wrong
};

// Throws std::runtime_error for a trace that cannot be read.
PowerLossResult cutPower(const PowerLoss& plan);

}  // namespace test
