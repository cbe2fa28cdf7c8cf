// Reading the journal in the order of one of its indexes, a row at a time: what every book of the journal is
// computed from.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "archives/mc.h"
#include "session/session.h"

namespace tarvex {

// Dates as in the records, yyyymmdd, both included.
struct DateRange {
  std::string from, to;
  bool holds(std::string_view date) const { return date >= from && date <= to; }
};

class JournalWalk {
 public:
  // Over the rows registered in the range, in the order of their dates, within a date of their numbers.
  static JournalWalk byDate(Session& session, const DateRange& range);
  // Over the rows of a voice, in the order of their dates.
  static JournalWalk byVoice(Session& session, std::string_view conto, const DateRange& range);
  // Over the rows of a voice, those of one document (its date and number) together.
  static JournalWalk byDocument(Session& session, std::string_view conto);
  // Over all rows, voice by voice, within a voice in the order of their dates.
  static JournalWalk byVoices(Session& session);
  // Over all rows in the order of their numbers.
  static JournalWalk byNumber(Session& session);

  const rec::mc* next();  // null behind the last row, and when the archive fails, which has been reported
  const std::string& key() { return mc_->primaryKey(); }  // of the row delivered last
  bool isWhole() const { return whole_; }                 // next() has come to the end, and nothing failed

 private:
  JournalWalk(Session& session, int index, std::string from, std::string to);

  Session& session_;
  OpenArchive<rec::mc> mc_;
  int index_;
  std::string to_;  // keys that begin so are the last ones; empty: up to the end
  bool standsOnFirst_ = false, whole_ = false;
};

// The names of voices by their codes, each read once.
class VoiceNames {
 public:
  explicit VoiceNames(Session& session);
  const std::string& of(const std::string& code);  // empty for a voice that is gone, which is reported

 private:
  Session& session_;
  OpenArchive<rec::pc> pc_;
  std::unordered_map<std::string, std::string> names_;
};

// About how many rows the journal has: what the progress of a long print is reckoned on.
std::size_t journalRows(Session& session);

// The opening entry of the year is posted: its rows take the place of the opening balances.
bool isOpeningPosted(Session& session);

// What the books show of a row.
std::string documentOf(const rec::mc& row);  // "000123 15/01/2003", an empty date as blanks
std::string dateOf(std::string_view key);    // dd/mm/yyyy
std::string protocolOf(const rec::mc& row);  // empty for 0

}  // namespace tarvex
