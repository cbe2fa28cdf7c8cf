// The catalogue: every archive of the system with its scope, key length, format string and field names.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace archives {

enum class Scope { installation, company, year };

struct Entry {
  std::string_view prefix;
  Scope scope;
  int keyLength;
  std::string_view format;
  int code;  // in the failure boxes
  // Of the fields, in record order; of an archive that has no typed record yet: "campo1", "campo2" ...
  std::vector<std::string_view> names;
};

std::span<const Entry> catalogue();
const Entry* find(std::string_view prefix);  // nullptr when there is none

// The entry of a full archive name without directory ("2003ABmc", "ABba", "civa"); nullptr for any other
// name.
const Entry* entryOf(std::string_view archive);

// The archive's name: prefix; company + prefix; year + company + prefix.
std::string nameOf(const Entry& entry, std::string_view year, std::string_view company);

// The group log of an archive: "<company>--.grp"; "--.grp" for one of the installation and for a name that is
// no archive's.
std::string logOf(std::string_view archive);

}  // namespace archives
