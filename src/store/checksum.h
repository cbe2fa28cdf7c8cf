// The checksum of records and of the group log: CRC-32C (Castagnoli), reflected, initial and final value all
// ones.
#pragma once

#include <cstdint>
#include <string_view>

namespace store {

// The checksum of `bytes`; with `before`, of the bytes that gave it and these behind them: crc32c(b,
// crc32c(a)) is crc32c(a + b). crc32c("123456789") is 0xE3069283. Any change within 32 bits in a row is
// noticed.
std::uint32_t crc32c(std::string_view bytes, std::uint32_t before = 0);

}  // namespace store
