// Dates in their four forms of fixed width: dd/mm/yyyy on the screens, yyyymmdd in records and keys,
// ddmmyyyy in passing, dd/mm/yy on short prints. Nothing here shows a box: the checks with a message
// stand in session/checks.h.
#pragma once

#include <string>
#include <string_view>

namespace common {

// Each takes a text of its full width; an empty one stays empty.
std::string DateToKey(std::string_view date);       // dd/mm/yyyy -> yyyymmdd
std::string KeyToDate(std::string_view key);        // yyyymmdd -> ddmmyyyy
std::string SlashDate(std::string_view date);       // ddmmyyyy -> dd/mm/yyyy
std::string SlashDateShort(std::string_view date);  // ddmmyy -> dd/mm/yy

// A blank entry mask ("__/__/__", "__/__/____", "__/__/2003"), or a text of value 0, becomes empty.
void clearBlankDate(std::string& date);

// Whether the text is a date dd/mm/yyyy whose day exists. The leap years are exactly 2000, 2004, 2008,
// 2012 and 2016: no other year has a 29th of February. Any year passes.
bool dayExists(std::string_view date);

bool isDateOf(std::string_view date, std::string_view year);  // dayExists, in that year of four digits
bool isDate(std::string_view date);                           // dayExists, in the years 1900 to 2099

// Days from one date dd/mm/yyyy to another, by the calendar; 0 when one of them is no date of it.
int daysBetween(std::string_view from, std::string_view to);

}  // namespace common
