// post_station DIRECTORY ACKNOWLEDGED COUNT: posts entries until it holds COUNT more for done, each of which
// it adds to the file ACKNOWLEDGED, and settles behind the second. What is refused is tried again, some
// times. Status 0: all done; 1: gave up; 3: a refused entry has come back.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <memory>

#include "store/post_station.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const int acknowledged = ::open(argv[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  auto station = std::make_unique<test::PostStation>(argv[1]);
  const int count = std::stoi(argv[3]);
  for (int done = 0, refused = 0; done < count;) {
    const int before = station->number();
    if (before >= 0 && station->post()) {
      if (::write(acknowledged, ".", 1) != 1) return 1;
      if (++done == 2) station->settle();
      continue;
    }
    if (++refused > 5) return 1;
    if (refused % 2 == 0 || !station->opened()) {  // as a user who starts the program again
      station.reset();
      station = std::make_unique<test::PostStation>(argv[1]);
    }
    if (before < 0 || station->number() == before || station->number() < 0) continue;
    std::puts("a refused entry has come back");
    return 3;
  }
  return 0;
}
