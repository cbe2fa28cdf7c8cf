// Plays one scenario against the whole program: run_scenario FILE.scn
//
// A scenario is a script of commands. Below a command, each line that begins with ">" is JSON that its answer
// must hold (driver/match.h). A command without such a line must be carried out quietly: ok, no box, no beep.
// The scenario starts in an empty directory, at 10:30 of the 15th of April 2003.

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "driver/match.h"
#include "driver/play.h"
#include "driver/words.h"
#include "tools/scratch.h"

namespace {

using nlohmann::json;

struct Expectation {
  int line;
  json wanted;  // discarded: the line is no JSON
};

struct Step {
  int line;
  std::string command;
  std::vector<Expectation> wanted;
};

std::vector<Step> read(std::istream& file) {
  std::vector<Step> steps;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with('>') && !steps.empty())
      steps.back().wanted.push_back({number, json::parse(line.substr(1), nullptr, false)});
    else if (!driver::readWords(line, 1).words.empty())
      steps.push_back({number, line, {}});
  }
  return steps;
}

const json& quietly() {
  static const json quiet = {{"ok", true}, {"boxes", json::array()}, {"beeps", 0}};
  return quiet;
}

// Prints what is wrong with one answer; how many things were.
int judge(const std::string& file, const Step& step, const json& answer) {
  int faults = 0;
  const auto check = [&](int line, const json& wanted) {
    const std::string fault =
        wanted.is_discarded() ? "the expectation is no JSON" : test::mismatch(answer, wanted);
    if (fault.empty()) return;
    ++faults;
    std::cout << file << ':' << line << ": " << fault << "\n  command: " << step.command
              << "\n  answer:  " << answer << '\n';
  };
  if (step.wanted.empty()) check(step.line, quietly());
  for (const auto& expectation : step.wanted) check(expectation.line, expectation.wanted);
  return faults;
}

// How many things were wrong.
int play(const std::string& file) {
  std::ifstream in(file);
  const auto steps = read(in);
  if (steps.empty()) {
    std::cout << file << ": no commands\n";
    return 1;
  }
  std::string script;
  for (const auto& step : steps) script += step.command + '\n';
  const test::Scratch scratch;
  const auto answers = test::play(scratch.path(), script);
  int faults = 0;
  for (std::size_t i = 0; i < steps.size() && i < answers.size(); ++i)
    faults += judge(file, steps[i], answers[i]);
  if (answers.size() < steps.size()) {
    ++faults;
    std::cout << file << ':' << steps[answers.size()].line << ": the program ended before this command\n";
  }
  return faults;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 2;
  try {
    return play(words[1]) ? 1 : 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", words[1], error.what());
    return 1;
  }
}
