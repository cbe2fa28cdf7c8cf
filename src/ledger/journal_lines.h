// The lines of the journal in a list of eight columns, the last of which names the entry: read while it is
// looked at, so that a million of them show at once.
#pragma once

#include <string>
#include <vector>

#include "ledger/books/journal_walk.h"
#include "ui/control.h"

namespace tarvex {

class JournalLines : public ui::Rows {
 public:
  // Those registered in the range, by date, of one kind of entry or, with an empty `causale`, of all.
  JournalLines(Session& session, const DateRange& range, std::string_view causale);

  std::size_t count() const override { return keys_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override;
  bool grow() override;

  const std::string& nummov(std::size_t row) const;  // empty when the line is gone meanwhile

 private:
  struct Shown {
    std::size_t row = static_cast<std::size_t>(-1);
    rec::mc line;
    std::string voice;
  };
  const Shown& at(std::size_t row) const;

  JournalWalk walk_;
  std::string causale_;
  std::vector<std::uint32_t> keys_;
  mutable OpenArchive<rec::mc> mc_;
  mutable VoiceNames names_;
  mutable std::vector<Shown> shown_;  // those in sight, by their row
};

}  // namespace tarvex
