// Damage as disks, controllers and careless hands do it to a file.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace test {

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline constexpr const char* kDamages[] = {"bit",   "bits", "head", "sector", "page",   "cut",
                                           "pages", "swap", "grow", "empty",  "missing"};

// Does that damage to a file, at places drawn from `random`.
inline void damage(const std::string& path, const std::string& kind, std::mt19937& random) {
  constexpr std::size_t kPage = 4096, kSector = 512;
  std::string bytes = bytesOf(path);
  const auto draw = [&](std::size_t below) {
    return std::size_t{random()} % std::max<std::size_t>(below, 1);
  };
  const auto flip = [&](std::size_t below) {
    if (below) bytes[draw(below)] ^= static_cast<char>(1 << draw(8));
  };
  if (kind == "missing") {
    std::filesystem::remove(path);
    return;
  }
  if (kind == "bit") flip(bytes.size());
  if (kind == "bits")
    for (int i = 0; i < 64; ++i) flip(bytes.size());
  if (kind == "head") flip(std::min<std::size_t>(bytes.size(), 100));
  if (kind == "sector") {
    const std::size_t at = draw(bytes.size() / kSector) * kSector;
    for (std::size_t i = at; i < std::min(at + kSector, bytes.size()); ++i)
      bytes[i] = static_cast<char>(random());
  }
  if (kind == "page") {
    const std::size_t at = draw(bytes.size() / kPage) * kPage;
    for (std::size_t i = at; i < std::min(at + kPage, bytes.size()); ++i) bytes[i] = 0;
  }
  if (kind == "cut") bytes.resize(draw(bytes.size()));
  if (kind == "pages") bytes.resize(draw(bytes.size() / kPage) * kPage);
  if (kind == "swap" && bytes.size() >= kPage) {
    const std::size_t a = draw(bytes.size() / kPage) * kPage, b = draw(bytes.size() / kPage) * kPage;
    const auto at = [&](std::size_t offset) { return bytes.begin() + static_cast<std::ptrdiff_t>(offset); };
    if (a != b) std::swap_ranges(at(a), at(a + kPage), at(b));
  }
  if (kind == "grow")
    for (std::size_t i = 1 + draw(9000); i > 0; --i) bytes += static_cast<char>(random());
  if (kind == "empty") bytes.clear();
  writeBytes(path, bytes);
}

}  // namespace test
