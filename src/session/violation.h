// What the rules of `verify` are, and what they find wrong in the books.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class Session;

struct Violation {
  std::string_view rule;             // a literal: "entries balance"
  std::string text;                  // where and what, in the user's language
  std::vector<std::string> records;  // the records concerned, as prefix, blank and primary key: "mc 00000004"
  double difference = 0;             // in the currency of the year
  // From the rule's declaration.
  std::string_view title = {}, repair = {};
  bool notice = false;
};

// A rule is one row in a table of the folder whose archives it checks.
struct Rule {
  std::string_view name;    // for scripts
  std::string_view title;   // for the user
  std::string_view repair;  // what mends a violation
  std::vector<Violation> (*check)(Session& session);
  bool notice = false;  // told, but no fault by itself
};

}  // namespace tarvex
