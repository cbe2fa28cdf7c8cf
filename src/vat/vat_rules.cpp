#include "vat/vat_rules.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "archives/iv.h"
#include "archives/mc.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "session/scan.h"

namespace tarvex {
namespace {

constexpr std::string_view kRule = "VAT rows equal the VAT line";
constexpr std::string_view kVatOnSales = "00012";

struct Entry {
  double line = 0;  // on 00012: avere less dare
  double rows = 0;  // the imposta of the iv rows
};

std::string keyOf(const rec::mc& row) {
  return row.registro + "/" + common::right(row.numdoc, 5) + "/" + row.datareg;
}
std::string keyOf(const rec::iv& row) {
  return row.registro + "/" + row.numero + "/" + common::DateToKey(row.datareg);
}
bool isOfSales(const rec::mc& row) { return row.causale == "fv" || row.causale == "cv"; }

template <class Each>
bool scanJournal(Session& session, const Each& each) {
  return scan<rec::mc>(session, 3900, 3901, 3902, [&](const archives::Archive<rec::mc>& mc) {
    if (isOfSales(mc.B)) each(mc);
  });
}

template <class Each>
bool scanVatRows(Session& session, const Each& each) {
  return scan<rec::iv>(session, 3903, 3904, 3905, each);
}

// Nothing when an archive cannot be read.
std::optional<std::unordered_map<std::string, Entry>> readEntries(Session& session) {
  std::unordered_map<std::string, Entry> entries;
  const bool journal = scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    Entry& entry = entries[keyOf(mc.B)];
    if (mc.B.conto == kVatOnSales) entry.line += mc.B.avere - mc.B.dare;
  });
  const bool rows = scanVatRows(session, [&](const archives::Archive<rec::iv>& iv) {
    const auto entry = entries.find(keyOf(iv.B));
    if (entry != entries.end()) entry->second.rows += iv.B.imposta;
  });
  if (!journal || !rows) return std::nullopt;
  return entries;
}

// Names the records of each violation, which bears its key in the map.
void nameRecords(Session& session, std::map<std::string, Violation>& violations) {
  const auto name = [&](const std::string& key, std::string record) {
    const auto found = violations.find(key);
    if (found != violations.end()) found->second.records.push_back(std::move(record));
  };
  scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    if (mc.B.conto == kVatOnSales) name(keyOf(mc.B), "mc " + mc.primaryKey());
  });
  scanVatRows(session,
              [&](const archives::Archive<rec::iv>& iv) { name(keyOf(iv.B), "iv " + iv.primaryKey()); });
}

}  // namespace

std::vector<Violation> checkVatRows(Session& session) {
  const auto entries = readEntries(session);
  if (!entries) return {{kRule, "the journal or the VAT rows cannot be read", {}, 0}};
  std::map<std::string, Violation> wrong;
  for (const auto& [key, entry] : *entries) {
    const double difference = common::roundBalance(entry.rows - entry.line);
    if (difference == 0) continue;
    wrong[key] = {kRule,
                  "register/number/date " + key + ": rows " + common::toText(entry.rows) + ", journal " +
                      common::toText(entry.line),
                  {},
                  difference};
  }
  if (!wrong.empty()) nameRecords(session, wrong);
  std::vector<Violation> violations;
  violations.reserve(wrong.size());
  for (auto& [key, violation] : wrong) violations.push_back(std::move(violation));
  return violations;
}

}  // namespace tarvex
