#include "ledger/ledger_rules.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "archives/mc.h"
#include "archives/pc.h"
#include "common/amount.h"
#include "ledger/reference_rules.h"
#include "ledger/vat_rows.h"
#include "session/scan.h"

namespace tarvex {
namespace {

constexpr const char* kUnreadable = "la prima nota non si legge";

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

// Open items that came over from the year before stand by themselves, and are no part of the balances.
bool isOfYear(const Session& session, const rec::mc& row) {
  return row.datareg.starts_with(session.WorkYear);
}

Journal readJournal(Session& session) {
  Journal journal;
  journal.whole = scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    if (!isOfYear(session, mc.B)) return;
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

std::vector<Violation> checkEntries(Session& session) {
  const Journal journal = readJournal(session);
  if (!journal.whole) return {{{}, kUnreadable, {}, 0}};
  std::vector<Violation> violations;
  std::set<std::string> wrong;
  for (const auto& [nummov, sums] : journal.byEntry)
    if (differ(sums.dare, sums.avere)) wrong.insert(nummov);
  const auto rows = rowsOf(session, wrong, [](const rec::mc& row) { return row.nummov; });
  for (const auto& nummov : wrong) {
    const Sums& sums = journal.byEntry.at(nummov);
    violations.push_back({{},
                          "registrazione " + nummov + ": dare " + common::toText(sums.dare) + ", avere " +
                              common::toText(sums.avere),
                          rows.contains(nummov) ? rows.at(nummov) : std::vector<std::string>(),
                          common::roundBalance(sums.dare - sums.avere)});
  }
  return violations;
}

// The sums of the journal on all three levels. Rows of voices that do not exist are another rule's.
std::unordered_map<std::string, Sums> spread(Session& session, const Journal& journal) {
  std::unordered_map<std::string, Sums> expected;
  scanChart(session, [&](const archives::Archive<rec::pc>& pc) {
    const auto rows = journal.byVoice.find(pc.primaryKey());
    if (rows == journal.byVoice.end()) return;
    for (const auto& level : std::set<std::string>{pc.primaryKey(), pc.B.mastro, pc.B.conto})
      expected[level].add(rows->second.dare, rows->second.avere);
  });
  return expected;
}

void compare(const std::string& code, std::string_view what, double stands, double shouldBe,
             std::vector<Violation>& violations) {
  if (!differ(stands, shouldBe)) return;
  violations.push_back({{},
                        "voce " + code + ": " + std::string(what) + " è " + common::toText(stands) +
                            " invece di " + common::toText(shouldBe),
                        {"pc " + code},
                        common::roundBalance(stands - shouldBe)});
}

// With the opening entry in the journal its amounts are taken out of the progressives, as RICO does.
Sums withoutOpening(const Sums& sums, double opening) {
  return {sums.dare - std::max(opening, 0.0), sums.avere + std::min(opening, 0.0)};
}

std::vector<Violation> checkProgressives(Session& session) {
  const Journal journal = readJournal(session);
  if (!journal.whole) return {{{}, kUnreadable, {}, 0}};
  const auto expected = spread(session, journal);
  session.ct.B = {};
  session.ct.search(0, "1");
  const bool opened = session.ct.B.bapflag == "n";
  std::vector<Violation> violations;
  const bool whole = scanChart(session, [&](const archives::Archive<rec::pc>& pc) {
    const std::string& code = pc.primaryKey();
    const auto found = expected.find(code);
    Sums sums = found == expected.end() ? Sums{} : found->second;
    if (opened && pc.B.natura == "p") sums = withoutOpening(sums, pc.B.saldoiniziale);
    compare(code, "dare", pc.B.dare, sums.dare, violations);
    compare(code, "avere", pc.B.avere, sums.avere, violations);
    compare(code, "saldo", pc.B.saldo, pc.B.saldoiniziale + pc.B.dare - pc.B.avere, violations);
  });
  if (!whole) violations.push_back({{}, "il piano dei conti non si legge", {}, 0});
  return violations;
}

// What no two entries may share, as the violation names it; empty for a row that has no such number.
std::string numberOf(const rec::mc& row) {
  const auto side = vatSideOf(row.causale);
  if (!side || *side == VatSide::sales) return {};
  return *side == VatSide::purchases
             ? "registro " + row.registro + ", protocollo " + registerNumber(row.protocollo)
             : "registro " + row.registro + ", corrispettivo " + registerNumber(row.numdoc);
}

std::vector<Violation> checkNumbers(Session& session) {
  std::unordered_map<std::string, std::string> entries;  // by number
  std::set<std::string> doubles;
  const auto numberOfYear = [&](const rec::mc& row) {
    return isOfYear(session, row) ? numberOf(row) : std::string();
  };
  const bool whole = scanJournal(session, [&](const archives::Archive<rec::mc>& mc) {
    const std::string number = numberOfYear(mc.B);
    if (number.empty()) return;
    if (entries.emplace(number, mc.B.nummov).first->second != mc.B.nummov) doubles.insert(number);
  });
  if (!whole) return {{{}, kUnreadable, {}, 0}};
  std::vector<Violation> violations;
  for (auto& [number, rows] : rowsOf(session, doubles, numberOfYear))
    violations.push_back({{}, number + " sta in più registrazioni", std::move(rows), 0});
  return violations;
}

constexpr std::string_view kRevision = "Prima nota, Revisione", kRico = "Ricostruzione progressivi";

constexpr Rule kRules[] = {
    {"entries balance", "Le registrazioni quadrano", kRevision, checkEntries},
    {"progressives equal the journal", "I progressivi sono quelli della prima nota", kRico,
     checkProgressives},
    {"numbers are given once", "Nessun numero sta due volte", kRevision, checkNumbers},
    {"references exist", "Ogni voce, codice e registro esiste", "Registrare di nuovo ciò che manca",
     checkReferences},
    {"screen rows belong to an entry", "Le righe digitate hanno una registrazione",
     "Nessuno: non contano in alcun totale", checkScreenRows},
    {"counters are not behind", "I contatori non restano indietro", "Nessuno: i numeri occupati sono saltati",
     checkCounters, true},
    {"numbers have no gaps", "I numeri si susseguono", "Registrare il documento che manca", checkGaps, true},
};

}  // namespace

std::span<const Rule> ledgerRules() { return kRules; }

}  // namespace tarvex
