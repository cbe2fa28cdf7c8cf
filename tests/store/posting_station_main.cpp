// posting_station DIRECTORY ACKNOWLEDGED COUNT [share | own]: posts until it holds COUNT postings more for
// done, each of which it adds to the file ACKNOWLEDGED, and settles behind the second. What is refused is
// tried again, some times, and after every second refusal with the program started anew, as its user would.
// With COUNT 0 it reads the books and tells what is wrong with them. Every failure that it would show is told
// on a line. Status 0: all done; 1: gave up; 3: a refused posting has come back.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string_view>

#include "store/postings.h"

namespace {

std::unique_ptr<test::Postings> start(const char* directory, bool share) {
  return std::make_unique<test::Postings>(directory, share, [](const store::ArchiveFailure& failure) {
    std::puts((failure.cause + '|' + failure.logLine).c_str());
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const bool share = argc > 4 ? argv[4] == std::string_view("share") : test::onShare();
  const int acknowledged = ::open(argv[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  auto station = start(argv[1], share);
  const int count = std::stoi(argv[3]);
  if (count == 0) {
    long found = 0;
    std::puts(station->judge(found).c_str());
    return 0;
  }
  for (int done = 0, refused = 0; done < count;) {
    const long before = station->number();
    if (before >= 0 && station->post()) {
      if (::write(acknowledged, ".", 1) != 1) return 1;
      if (++done == 2) station->settle();
      continue;
    }
    std::puts("refused");
    if (++refused > 5) return 1;
    if (refused % 2 == 0 || !station->isOpen()) {
      station.reset();
      station = start(argv[1], share);
    }
    if (before < 0 || station->number() == before || station->number() < 0) continue;
    std::puts("a refused posting has come back");
    return 3;
  }
  return 0;
}
