#include "ledger/removal.h"

#include "ledger/entry_dues.h"
#include "ledger/posting.h"
#include "ledger/vat_rows.h"
#include "store/group.h"
#include "ui/desk.h"

namespace tarvex {
namespace {

using archives::Archive;
using store::Operation;

constexpr int kMc = archives::Layout<rec::mc>::code, kTt = archives::Layout<rec::tt>::code;
constexpr int kByEntry = 8;      // of mc
constexpr int kRowsByEntry = 1;  // of tt

// `use` on each record with that key, in the order of the index.
template <class R, class Use>
void eachOf(Session& session, Archive<R>& archive, int index, std::string_view key, int position,
            const Use& use) {
  store::Code code = archive.search(index, key);
  for (; code == store::kOk && archive.indexKey() == key; code = archive.next(index)) use(archive);
  if (code != store::kOk && code != store::kNotFound)
    session.CheckArchiveResult(Operation::read, archive.code, position);
}

// An open item that came over from another year has never moved the progressives.
void eraseLine(Session& session, Archive<rec::mc>& mc, const std::string& key, const rec::mc& line) {
  if (line.datareg.starts_with(session.WorkYear))
    AggiornaProgressivi(session, line.conto, -line.dare, -line.avere);
  mc.erase(key);
  session.CheckArchiveResult(Operation::erase, kMc, 1540);
  mc.flush();
}

void eraseScreenRows(Session& session, const std::string& nummov) {
  OpenArchive<rec::tt> tt(session, 1541, 1542);
  std::vector<std::string> keys;
  eachOf(session, *tt, kRowsByEntry, nummov, 1554,
         [&](const Archive<rec::tt>& row) { keys.push_back(row.primaryKey()); });
  for (const std::string& key : keys) {
    tt->erase(key);
    session.CheckArchiveResult(Operation::erase, kTt, 1543);
  }
  tt->flush();
}

}  // namespace

std::optional<JournalEntry> readEntry(Session& session, std::string_view nummov) {
  JournalEntry entry{std::string(nummov), {}, {}, {}};
  OpenArchive<rec::mc> mc(session, 1544, 1545);
  eachOf(session, *mc, kByEntry, nummov, 1555, [&](const Archive<rec::mc>& line) {
    entry.keys.push_back(line.primaryKey());
    entry.lines.push_back(line.B);
  });
  if (entry.lines.empty()) return {};
  OpenArchive<rec::tt> tt(session, 1546, 1547);
  eachOf(session, *tt, kRowsByEntry, nummov, 1556,
         [&](const Archive<rec::tt>& row) { entry.rows.push_back(row.B); });
  return entry;
}

std::vector<DueDate> takeBack(Session& session, const JournalEntry& entry) {
  {
    OpenArchive<rec::mc> mc(session, 1548, 1549);
    for (std::size_t i = 0; i < entry.lines.size(); ++i)
      eraseLine(session, *mc, entry.keys[i], entry.lines[i]);
  }
  if (const auto document = vatDocumentOf(entry.lines.front())) removeVatRows(session, *document);
  eraseScreenRows(session, entry.nummov);
  return takeDuesBack(session, entry);
}

bool removeEntry(Session& session, std::string_view nummov, const std::function<void()>& also) {
  const ui::Busy busy(session.desk());
  store::Group group(session.store, session.groupLog(), kMc, 1550);
  session.pr.spinLock("mc");
  const auto entry = readEntry(session, nummov);
  if (!entry) return false;
  takeBack(session, *entry);
  if (also) also();
  session.pr.unlock("mc");
  return group.commit();
}

bool removeRow(Session& session, std::string_view key) {
  const ui::Busy busy(session.desk());
  store::Group group(session.store, session.groupLog(), kMc, 1551);
  session.pr.spinLock("mc");
  {
    OpenArchive<rec::mc> mc(session, 1552, 1553);
    if (mc->search(0, key) != store::kOk) return false;
    const rec::mc line = mc->B;
    eraseLine(session, *mc, std::string(key), line);
  }
  session.pr.unlock("mc");
  return group.commit();
}

}  // namespace tarvex
