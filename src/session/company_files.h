// The archives of a company as files: copied to another code, removed.
#pragma once

#include <string>
#include <string_view>

#include "session/session.h"

namespace tarvex {

// Copies the archives of the open company and year to `code`: its `ct`, `pc`, `pr` are closed meanwhile and
// open again afterwards. Each copy that fails is reported, and the others go on. What a removed company has
// left of `po` under that code gives way.
void copyCompany(Session& session, std::string_view code);

// Whether any year of the company stands, also one whose archives do not open: a repair may bring it back.
bool hasYear(Session& session, std::string_view code);

// Removes the archives of that year with its log, each failure reported. When no year of the company is left,
// those of the company follow (but for `po`), and its slot of `dataz` becomes free again. False, and nothing
// is removed, while another station works in that year.
bool removeYear(Session& session, std::string_view code, std::string_view year);

// The same for a company that has no year: what a creation has left that was cut short.
void removeCompany(Session& session, std::string_view code);

}  // namespace tarvex
