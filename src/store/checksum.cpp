#include "store/checksum.h"

#include <array>
#include <cstddef>

namespace store {
namespace {

constexpr std::uint32_t kPolynomial = 0x82F63B78;  // 0x1EDC6F41 with its bits reflected
constexpr std::size_t kStride = 8;                 // bytes taken at once: a scan checks every record it reads

using Tables = std::array<std::array<std::uint32_t, 256>, kStride>;

// tables[n][b] is what the byte b adds to the checksum when n more bytes follow it in the stride.
constexpr Tables makeTables() {
  Tables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t crc = byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? kPolynomial : 0);
    tables[0][byte] = crc;
  }
  for (std::size_t n = 1; n < kStride; ++n) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t crc = tables[n - 1][byte];
      tables[n][byte] = (crc >> 8) ^ tables[0][crc & 0xFF];
    }
  }
  return tables;
}

constexpr Tables kTables = makeTables();

}  // namespace

std::uint32_t crc32c(std::string_view bytes, std::uint32_t before) {
  std::uint32_t crc = ~before;
  while (bytes.size() >= kStride) {
    std::uint32_t next = 0;
    for (std::size_t n = 0; n < kStride; ++n) {
      std::uint32_t byte = static_cast<unsigned char>(bytes[n]);
      if (n < 4) byte ^= (crc >> (8 * n)) & 0xFF;
      next ^= kTables[kStride - 1 - n][byte];
    }
    crc = next;
    bytes.remove_prefix(kStride);
  }
  for (const char byte : bytes)
    crc = (crc >> 8) ^ kTables[0][(crc ^ static_cast<unsigned char>(byte)) & 0xFF];
  return ~crc;
}

}  // namespace store
