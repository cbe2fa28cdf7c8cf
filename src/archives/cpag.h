// Payment conditions: how the total of an invoice falls due.
// Primary key: four digits, the lowest number from "0001" on that was free.
#pragma once

#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct cpag {
  std::string descrizione;  // what customers and documents hold
  std::string tipo;  // "rd" direct remittance, "rb" bank receipt; empty: a description without due dates
  std::int16_t numrate = 0;      // 0 at sight, 1 to 4
  std::int16_t primarata = 0;    // months to the first instalment; 0 at sight
  std::int16_t giorno = 0;       // 0 date of the invoice, 10, 15, 20, 30 end of the month
  std::int16_t agosto = 0;       // 1 August at its end, 2 August and December on the 15th after
  std::int16_t saltaagosto = 0;  // 1: August is passed over
};

}  // namespace rec

template <>
struct archives::Layout<rec::cpag> {
  static constexpr std::string_view prefix = "cpag";
  static constexpr int code = 20;
  static constexpr std::string_view format = "x40$,$,%,%,%,%,%";
};
