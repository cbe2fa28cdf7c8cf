#include "ledger/journal_lines.h"

#include "common/mask.h"
#include "common/text.h"

namespace tarvex {
namespace {

constexpr std::size_t kAtOnce = 200;         // lines
constexpr std::size_t kReadAtOnce = 20'000;  // rows of the journal, where few are of the kind asked for
constexpr std::size_t kInSight = 128;

std::string keyOf(std::uint32_t number) { return common::zeroFill(number, 8); }
std::string amount(double value) { return common::format("0.00", value); }

}  // namespace

JournalLines::JournalLines(Session& session, const DateRange& range, std::string_view causale)
    : walk_(JournalWalk::byDate(session, range)),
      causale_(causale),
      mc_(session, 2000, 2001),
      names_(session),
      shown_(kInSight) {
  grow();
}

bool JournalLines::grow() {
  const std::size_t wanted = keys_.size() + kAtOnce;
  for (std::size_t read = 0; read < kReadAtOnce && keys_.size() < wanted; ++read) {
    const rec::mc* row = walk_.next();
    if (!row) return false;
    if (causale_.empty() || row->causale == causale_)
      keys_.push_back(static_cast<std::uint32_t>(common::numberValue(walk_.key())));
  }
  return true;
}

const JournalLines::Shown& JournalLines::at(std::size_t row) const {
  Shown& place = shown_[row % kInSight];
  if (place.row == row) return place;
  place = {row, {}, {}};
  if (!mc_->isOpen() || mc_->search(0, keyOf(keys_[row])) != store::kOk) return place;
  place.line = mc_->B;
  place.voice = names_.of(place.line.conto);
  return place;
}

const std::string& JournalLines::nummov(std::size_t row) const { return at(row).line.nummov; }

std::string JournalLines::cell(std::size_t row, std::size_t column) const {
  const Shown& shown = at(row);
  const rec::mc& line = shown.line;
  if (line.nummov.empty()) return {};
  switch (column) {
    case 0:
      return dateOf(line.datareg);
    case 1:
      return documentOf(line);
    case 2:
      return protocolOf(line);
    case 3:
      return line.descrizione;
    case 4:
      return shown.voice;
    case 5:
      return amount(line.dare);
    case 6:
      return amount(line.avere);
    default:
      return line.nummov;
  }
}

}  // namespace tarvex
