// The program itself: its arguments, what it makes of its directory, its exit code.
#include <doctest/doctest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tools/scratch.h"

namespace {

struct Ran {
  int code;
  std::string out, err;
};

std::string contents(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

Ran drive(const test::Scratch& scratch, const std::string& arguments, const std::string& script = "") {
  std::ofstream(scratch / "in") << script;
  const std::string command = TARVEX_BINARY_DIR "/bin/tarvex-drive " + arguments + " <" + (scratch / "in") +
                              " >" + (scratch / "out") + " 2>" + (scratch / "err");
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(scratch / "out"), contents(scratch / "err")};
}

long lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

}  // namespace

TEST_CASE("a session that cannot be is told in one line, with exit 2") {
  const test::Scratch scratch;
  std::ofstream(scratch / "file") << "x";
  const std::string data = "--data " + (scratch / "data");
  for (const std::string& arguments :
       {std::string(), std::string("--data"), std::string("--data ''"), data + " --nonsense 1",
        data + " more", "--data " + (scratch / "file"), "--data " + (scratch / "file/below"),
        data + " --today 30/02/2003", data + " --today 2003-01-15", data + " --now 24:00",
        data + " --now 7:30"}) {
    const Ran ran = drive(scratch, arguments, "start\n");
    CAPTURE(arguments);
    CHECK(ran.code == 2);
    CHECK(ran.out.empty());
    CHECK(lines(ran.err) == 1);
  }
  CHECK(!std::filesystem::exists(scratch / "data"));
}

TEST_CASE("a missing directory is made, and the clock stands still") {
  const test::Scratch scratch;
  const std::string data = "--data " + (scratch / "a/b") + " --today 29/02/2004 --now 23:59";
  const Ran ran = drive(scratch, data, "start\nsession\n");
  CHECK(ran.code == 0);
  CHECK(ran.err.empty());
  CHECK(lines(ran.out) == 2);
  CHECK(ran.out.find(R"("TodayText":"29/02/2004")") != std::string::npos);
  CHECK(std::filesystem::exists(scratch / "a/b/dataz.ISD"));
  CHECK(drive(scratch, data, "start\nnonsense\n").code == 1);
}

TEST_CASE("a dataz that does not open is the box of start, and ends the program") {
  const test::Scratch scratch;
  const std::string data = "--data " + (scratch / "data");
  REQUIRE(drive(scratch, data, "start\nquit\n").code == 0);
  std::ofstream(scratch / "data/dataz.ISD") << "no archive at all";
  const Ran ran = drive(scratch, data, "start\nforms\n");
  CHECK(ran.code == 0);
  CHECK(lines(ran.out) == 1);
  CHECK(ran.out.find("Non è possibile proseguire con il programma.") != std::string::npos);
  CHECK(ran.out.find(R"("icon":"critical")") != std::string::npos);
}

TEST_CASE("rr in the program's directory says where the archives are") {
  const test::Scratch scratch;
  REQUIRE(drive(scratch, "--data " + (scratch / "shared"), "start\nquit\n").code == 0);
  std::filesystem::create_directory(scratch / "program");
  std::ofstream(scratch / "program/rr") << (scratch / "shared") << '\n';
  const Ran ran = drive(scratch, "--data " + (scratch / "own") + " --program " + (scratch / "program"),
                        "start\nsession\n");
  CHECK(ran.code == 0);
  CHECK(ran.out.find("\"DataDirectory\":\"" + (scratch / "shared") + "/\"") != std::string::npos);
}
