// posting_station DIRECTORY ACKNOWLEDGED COUNT: posts until it holds COUNT postings for done, each of which
// it adds to the file ACKNOWLEDGED. After a failure it starts anew, as its user would. Status 0: all done; 1:
// gave up.
#include <fcntl.h>
#include <unistd.h>

#include "store/postings.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const int acknowledged = ::open(argv[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  int left = std::stoi(argv[3]);
  for (int starts = 0; starts < 5; ++starts) {
    test::Postings books(argv[1]);
    while (books.isOpen() && left > 0 && books.post()) {
      if (::write(acknowledged, ".", 1) != 1) return 1;
      --left;
    }
    if (left == 0) return 0;
  }
  return 1;
}
