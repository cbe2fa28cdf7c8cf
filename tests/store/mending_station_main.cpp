// mending_station DIRECTORY ACKNOWLEDGED COUNT rebuild | repair | validate: does that to two archives of the
// books, COUNT times, each of which it adds to the file ACKNOWLEDGED. Prints the code of each that fails.
// Status 0 unless its arguments are wrong.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "store/books.h"

int main(int argc, char** argv) {
  if (argc < 5) return 2;
  const std::string_view what = argv[4];
  const int acknowledged = ::open(argv[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  store::RecordStore station(test::optionsOfTests());
  std::string report;
  for (int i = 0; i < std::stoi(argv[3]); ++i) {
    for (const char* archive : {"/2003ABmc", "/2003ABpc"}) {
      const std::string stem = argv[1] + std::string(archive);
      const store::Code code = what == "rebuild"  ? station.VTRebuild(stem)
                               : what == "repair" ? station.VTRepair(stem, report)
                                                  : station.VTVal(stem);
      if (code != store::kOk) std::printf("code %d\n", code);
    }
    if (::write(acknowledged, ".", 1) != 1) return 2;
  }
  return 0;
}
