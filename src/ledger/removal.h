// Taking entries of the journal back: what posting (ledger/posting.h) has written is undone by the mirror of
// its steps, as one group.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/mc.h"
#include "archives/tt.h"
#include "duedates/due_ledgers.h"
#include "session/session.h"

namespace tarvex {

// An entry as it stands in the journal.
struct JournalEntry {
  std::string nummov;
  std::vector<std::string> keys;  // of the lines
  std::vector<rec::mc> lines;     // in the order of writing; at least one
  std::vector<rec::tt> rows;      // of its screen, in their order
};

// Nothing when no line bears that number.
std::optional<JournalEntry> readEntry(Session& session, std::string_view nummov);

// Takes an entry back: each line from the progressives of its voice, its mastro and its conto, then the line
// itself; its VAT rows; the rows of its screen; its due dates, which are given back (ledger/entry_dues.h).
// Part of a group that the caller has opened, with the lock "mc" of `pr` held.
std::vector<DueDate> takeBack(Session& session, const JournalEntry& entry);

// The same as a group of its own, with `also` in it. False when the entry is gone, or after a failure that
// has been reported; then nothing was changed.
bool removeEntry(Session& session, std::string_view nummov, const std::function<void()>& also = {});

// Takes one row of the journal back by its key, with its progressives; VAT rows and the rows of the screen
// stay. Results as of removeEntry.
bool removeRow(Session& session, std::string_view key);

}  // namespace tarvex
