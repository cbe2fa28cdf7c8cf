// What a rule of `verify` found wrong in the books.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

struct Violation {
  std::string_view rule;             // a literal: "entries balance"
  std::string text;                  // one sentence that says where
  std::vector<std::string> records;  // the records concerned, as prefix, blank and primary key: "mc 00000004"
  double difference = 0;             // in the currency of the year
};

}  // namespace tarvex
