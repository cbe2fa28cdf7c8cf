// Companies: 380 slots, one for each code of two letters, filled once for the installation.
// Primary key: the company's code.
#pragma once

#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct dataz {
  std::string ragsoc;  // empty in a free slot
  std::string indirizzo;
  std::string citta;
  std::string partitaiva;
  std::int16_t stato = 0;   // 1 in a slot in use
  std::int16_t stato2 = 0;  // as stato
  std::string password;     // empty means none; else an Argon2id text, or plain text from before
};

}  // namespace rec

template <>
struct archives::Layout<rec::dataz> {
  static constexpr std::string_view prefix = "dataz";
  static constexpr int code = 3;
  static constexpr std::string_view format = "x40$,$,$,$,%,%,$";
};
