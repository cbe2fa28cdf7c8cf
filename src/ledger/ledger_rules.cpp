#include "ledger/ledger_rules.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>

#include "archives/mc.h"
#include "archives/pc.h"
#include "common/amount.h"
#include "ledger/vat_rows.h"
#include "session/scan.h"

namespace tarvex {
namespace {

constexpr std::string_view kBalance = "entries balance";
constexpr std::string_view kProgressives = "progressives equal the journal";
constexpr std::string_view kNumbers = "numbers are given once";

struct Sums {
  double dare = 0, avere = 0;
  void add(double d, double a) { dare += d, avere += a; }
};

struct Journal {
  std::unordered_map<std::string, Sums> byEntry;
  std::unordered_map<std::string, Sums> byVoice;
  bool whole = false;  // read to its end
};

bool differ(double a, double b) { return common::roundBalance(a - b) != 0; }

template <class Each>
bool scanJournal(Session& session, const Each& each) {
  return scan<rec::mc>(session, 2900, 2901, 2902, each);
}

template <class Each>
bool scanChart(Session& session, const Each& each) {
  return scan<rec::pc>(session, 2903, 2904, 2905, each);
}

Journal readJournal(Session& session) {
  Journal journal;
  journal.whole = scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    // Open items that came over from the year before stand by themselves, and are no part of the balances.
    if (!mc.B.datareg.starts_with(session.WorkYear)) return;
    journal.byEntry[mc.B.nummov].add(mc.B.dare, mc.B.avere);
    journal.byVoice[mc.B.conto].add(mc.B.dare, mc.B.avere);
  });
  return journal;
}

// The rows of the journal for which `key` names one of `wanted`, by that key.
template <class Key>
std::map<std::string, std::vector<std::string>> rowsOf(Session& session, const std::set<std::string>& wanted,
                                                       const Key& key) {
  std::map<std::string, std::vector<std::string>> rows;
  if (wanted.empty()) return rows;
  scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    if (wanted.contains(key(mc.B))) rows[key(mc.B)].push_back("mc " + mc.primaryKey());
  });
  return rows;
}

void checkEntries(Session& session, const Journal& journal, std::vector<Violation>& violations) {
  std::set<std::string> wrong;
  for (const auto& [nummov, sums] : journal.byEntry)
    if (differ(sums.dare, sums.avere)) wrong.insert(nummov);
  const auto rows = rowsOf(session, wrong, [](const rec::mc& row) { return row.nummov; });
  for (const auto& nummov : wrong) {
    const Sums& sums = journal.byEntry.at(nummov);
    violations.push_back(
        {kBalance,
         "entry " + nummov + ": dare " + common::toText(sums.dare) + ", avere " + common::toText(sums.avere),
         rows.contains(nummov) ? rows.at(nummov) : std::vector<std::string>(),
         common::roundBalance(sums.dare - sums.avere)});
  }
}

// The sums of the journal on all three levels; rows of voices that do not exist stay in `strays`.
std::unordered_map<std::string, Sums> spread(Session& session, const Journal& journal,
                                             std::set<std::string>& strays) {
  std::unordered_map<std::string, Sums> expected;
  for (const auto& [voice, sums] : journal.byVoice) strays.insert(voice);
  scanChart(session, [&](const archives::Archive<rec::pc>& pc) {
    const auto rows = journal.byVoice.find(pc.primaryKey());
    if (rows == journal.byVoice.end()) return;
    strays.erase(pc.primaryKey());
    for (const auto& level : std::set<std::string>{pc.primaryKey(), pc.B.mastro, pc.B.conto})
      expected[level].add(rows->second.dare, rows->second.avere);
  });
  return expected;
}

void compare(const std::string& code, std::string_view what, double stands, double shouldBe,
             std::vector<Violation>& violations) {
  if (!differ(stands, shouldBe)) return;
  violations.push_back({kProgressives,
                        "voice " + code + ": " + std::string(what) + " is " + common::toText(stands) +
                            " instead of " + common::toText(shouldBe),
                        {"pc " + code},
                        common::roundBalance(stands - shouldBe)});
}

void checkProgressives(Session& session, const Journal& journal, std::vector<Violation>& violations) {
  std::set<std::string> strays;
  const auto expected = spread(session, journal, strays);
  const bool whole = scanChart(session, [&](const archives::Archive<rec::pc>& pc) {
    const std::string& code = pc.primaryKey();
    const auto found = expected.find(code);
    const Sums sums = found == expected.end() ? Sums{} : found->second;
    compare(code, "dare", pc.B.dare, sums.dare, violations);
    compare(code, "avere", pc.B.avere, sums.avere, violations);
    compare(code, "saldo", pc.B.saldo, pc.B.saldoiniziale + pc.B.dare - pc.B.avere, violations);
  });
  if (!whole) violations.push_back({kProgressives, "the chart of accounts cannot be read", {}, 0});
  for (const auto& [voice, rows] : rowsOf(session, strays, [](const rec::mc& row) { return row.conto; })) {
    const Sums& sums = journal.byVoice.at(voice);
    violations.push_back({kProgressives, "voice " + voice + " has rows and does not exist", rows,
                          common::roundBalance(sums.dare - sums.avere)});
  }
}

// What no two entries may share, as the violation names it; empty for a row that has no such number.
std::string numberOf(const rec::mc& row) {
  const auto side = vatSideOf(row.causale);
  if (!side || *side == VatSide::sales) return {};
  return *side == VatSide::purchases
             ? "register " + row.registro + ", protocol " + registerNumber(row.protocollo)
             : "register " + row.registro + ", receipt " + registerNumber(row.numdoc);
}

}  // namespace

std::vector<Violation> checkJournal(Session& session) {
  std::vector<Violation> violations;
  const Journal journal = readJournal(session);
  if (!journal.whole) return {{kBalance, "the journal cannot be read", {}, 0}};
  checkEntries(session, journal, violations);
  checkProgressives(session, journal, violations);
  return violations;
}

std::vector<Violation> checkNumbers(Session& session) {
  std::unordered_map<std::string, std::string> entries;  // by number
  std::set<std::string> doubles;
  const bool whole = scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    const std::string number = numberOf(mc.B);
    if (number.empty()) return;
    if (entries.emplace(number, mc.B.nummov).first->second != mc.B.nummov) doubles.insert(number);
  });
  if (!whole) return {{kNumbers, "the journal cannot be read", {}, 0}};
  std::vector<Violation> violations;
  for (auto& [number, rows] : rowsOf(session, doubles, numberOf))
    violations.push_back({kNumbers, number + " stands in more than one entry", std::move(rows), 0});
  return violations;
}

}  // namespace tarvex
