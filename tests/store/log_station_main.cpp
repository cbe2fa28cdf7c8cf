// log_station DIRECTORY ACKNOWLEDGED COUNT: recovers, then commits groups until it holds COUNT more for done,
// each of which it adds to the file ACKNOWLEDGED. A commit that is refused is tried again at once, then with
// the log opened anew. Status 0: all done; 1: gave up; 3: the log broke its word, as told on standard output.
#include <cstdio>

#include "store/log_station.h"

namespace {

bool recover(test::LogStation& station) {
  for (int tries = 0; tries < 3; ++tries)
    if (station.recover()) return true;
  return false;
}

int work(test::LogStation& station, int acknowledged, int count) {
  int refusals = 0;
  while (count > 0) {
    const long before = station.number();
    if (station.commit()) {
      if (::write(acknowledged, ".", 1) != 1) return 1;
      --count;
      continue;
    }
    std::puts("refused");
    if (++refusals % 2 == 1) continue;
    if (refusals > 4 || !recover(station)) return 1;
    if (station.number() == before) continue;
    std::puts("a group that was refused has come back");
    return 3;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const int acknowledged = ::open(argv[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  test::LogStation station(argv[1]);
  const int status = recover(station) ? work(station, acknowledged, std::stoi(argv[3])) : 1;
  if (station.wrong().empty()) return status;
  std::puts(station.wrong().c_str());
  return 3;
}
