#include "store/checksum.h"

#include <doctest/doctest.h>

#include <string>

using store::crc32c;

TEST_CASE("the checksum has the published values, at every length around its stride") {
  CHECK(crc32c("123456789") == 0xE3069283);
  CHECK(crc32c(std::string(32, '\0')) == 0x8A9136AA);
  CHECK(crc32c(std::string(32, '\xFF')) == 0x62A8AB43);
  CHECK(crc32c("") == 0);

  const std::string text = "Scadenza 31/12/2003, importo 1.234,56";
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    CAPTURE(cut);
    CHECK(crc32c(text.substr(cut), crc32c(text.substr(0, cut))) == crc32c(text));
  }
}
