#include "archives/catalogue.h"

#include <algorithm>
#include <array>
#include <string>

#include "archives/ax.h"
#include "archives/civa.h"
#include "archives/cpag.h"
#include "archives/ct.h"
#include "archives/dataz.h"
#include "archives/fa.h"
#include "archives/ff.h"
#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/param.h"
#include "archives/pc.h"
#include "archives/pr.h"
#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/si.h"
#include "archives/st.h"
#include "archives/tt.h"
#include "archives/xx.h"
#include "store/format.h"

namespace archives {
namespace {

template <class R>
Entry typed(Scope scope, int keyLength) {
  using L = Layout<R>;
  return {L::prefix, scope, keyLength, L::format, L::code, Codec<R>::names()};
}

// An archive without a typed record: its fields are told apart by their numbers.
Entry plain(std::string_view prefix, Scope scope, int keyLength, int code, std::string_view format) {
  static const std::vector<std::string> numbered = [] {
    std::vector<std::string> names;
    for (int i = 1; i <= 80; ++i) names.push_back("campo" + std::to_string(i));
    return names;
  }();
  const std::size_t fields = store::parseFormat(format).fields.size();
  return {prefix, scope, keyLength,
          format, code,  {numbered.begin(), numbered.begin() + static_cast<long>(fields)}};
}

std::vector<Entry> installationEntries() {
  using enum Scope;
  return {
      typed<rec::dataz>(installation, 2),
      typed<rec::civa>(installation, 2),
      typed<rec::cpag>(installation, 4),
      typed<rec::param>(installation, 1),
      plain("modulo", installation, 40, 23, "%,%,%,%,$,A51$,A51$,A51%,A51%,A51%,A51%,%,%,$"),
      plain("modrb", installation, 1, 29, "%,%,A51$,$"),
      plain("gg", installation, 30, 21, "$,$"),
  };
}

std::vector<Entry> companyEntries() {
  using enum Scope;
  return {
      typed<rec::ax>(company, 30),
      plain("ssmod", company, 1, 24, "$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$,$"),
      plain("sh", company, 30, 26, "A101$,A101$,A101#"),
      plain("ce", company, 3, 27, "$,$,$"),
      plain("ba", company, 5, 34,
            "X30$,$,$,#,$,$,#,#,#,%,$,%,%,%,$,$,A61%,A61#,A61#,A61#,A61#,A61#,A61#,A61#,A61#,A61$,A61%,"
            "$,$,$,#,#,#"),
      plain("po", company, 8, 36, "$,$,$,$,$,$,$,$,"),
  };
}

std::vector<Entry> yearEntries() {
  using enum Scope;
  return {
      typed<rec::ct>(year, 1),
      typed<rec::pr>(year, 10),
      typed<rec::pc>(year, 5),
      typed<rec::mc>(year, 8),
      typed<rec::tt>(year, 8),
      typed<rec::iv>(year, 8),
      typed<rec::ia>(year, 8),
      typed<rec::ic>(year, 8),
      typed<rec::si>(year, 1),
      typed<rec::xx>(year, 8),
      typed<rec::fa>(year, 8),
      plain("ma", year, 15, 14,
            "x13$,x13$,x13$,x30$,x10$,$,$,#,$,#,#,#,#,#,#,#,#,#,#,#,#,#,#,#,$,$,#,#,#,$,$,#,#,$,$,$,$,A51#,"
            "$,$,#,#"),
      plain("mm", year, 8, 15, "x2$,x8$,$,x13$,#,#,x5$,$,$,$,X10$,$,$,$,$,$"),
      plain("ag", year, 8, 16, "$,x8$,$,x5$,#,$,$,$,$,$"),
      typed<rec::sd>(year, 8),
      typed<rec::st>(year, 8),
      typed<rec::sf>(year, 8),
      plain("lf", year, 13, 28, "#,#,A11#,A11#"),
      plain("pf", year, 13, 30, "A501$,A501#,$,$,$"),
      plain("cp", year, 13, 31, "x30$,$,$,#,#,#,#,#,#,#,$,$,#,#,#"),
      plain("mp", year, 8, 32, "x13$,x8$,#,#,#,$,$,#,#"),
      typed<rec::ff>(year, 5),
      plain("ra", year, 8, 35, "x8$,x5$,x13$,#,#,#,#,#,$,#,$,$,$,#,#,#,#"),
  };
}

bool allDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isCompany(std::string_view text) {
  return text.size() == 2 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

struct Name {
  Scope scope = Scope::installation;
  std::string_view company, prefix;
};

Name parsed(std::string_view archive) {
  if (archive.size() > 6 && allDigits(archive.substr(0, 4)) && isCompany(archive.substr(4, 2)))
    return {Scope::year, archive.substr(4, 2), archive.substr(6)};
  if (archive.size() > 2 && isCompany(archive.substr(0, 2)))
    return {Scope::company, archive.substr(0, 2), archive.substr(2)};
  return {Scope::installation, {}, archive};
}

const Entry* entryOf(const Name& name) {
  const Entry* entry = find(name.prefix);
  return entry && entry->scope == name.scope ? entry : nullptr;
}

}  // namespace

std::span<const Entry> catalogue() {
  static const std::vector<Entry> entries = [] {
    std::vector<Entry> all = installationEntries();
    for (const auto& more : {companyEntries(), yearEntries()})
      all.insert(all.end(), more.begin(), more.end());
    return all;
  }();
  return entries;
}

const Entry* find(std::string_view prefix) {
  const auto entries = catalogue();
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.prefix == prefix; });
  return found == entries.end() ? nullptr : &*found;
}

const Entry* entryOf(std::string_view archive) { return entryOf(parsed(archive)); }

std::string nameOf(const Entry& entry, std::string_view year, std::string_view company) {
  std::string name;
  if (entry.scope == Scope::year) name += year;
  if (entry.scope != Scope::installation) name += company;
  return name.append(entry.prefix);
}

std::string logOf(std::string_view archive) {
  const Name name = parsed(archive);
  return std::string(entryOf(name) ? name.company : "").append("--.grp");
}

}  // namespace archives
