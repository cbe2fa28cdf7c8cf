// Schemes of automated entries, shared by the years of a company. Primary key: the name, 30 characters.
#pragma once

#include <array>
#include <string>

#include "archives/layout.h"

namespace rec {

struct AxRow {
  std::string conto;  // description of the voice
  std::string agg;    // added to the description of the line
  std::string segno;  // "d" dare, "a" avere
};

struct ax {
  static constexpr int kRows = 14;
  std::string nome;
  std::array<AxRow, kRows> righe;
};

}  // namespace rec

template <>
struct archives::Layout<rec::ax> {
  static constexpr std::string_view prefix = "ax";
  static constexpr int code = 10;
  static constexpr std::string_view format = "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
};

template <>
void archives::Codec<rec::ax>::encode(const rec::ax& record, std::string& packed);
template <>
bool archives::Codec<rec::ax>::decode(std::string_view packed, rec::ax& record);
template <>
std::vector<std::string_view> archives::Codec<rec::ax>::names();
