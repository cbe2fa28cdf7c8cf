#include "vat/vat_rules.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "session/scan.h"
#include "vat/settlement_state.h"

namespace tarvex {
namespace {

// Each side of the VAT: whose entries have rows there, the voices that bear their tax, and on which side.
struct Side {
  std::string_view archive;
  std::array<std::string_view, 2> causali;
  std::array<std::string_view, 2> voices;
  double sign;  // of dare less avere
};
constexpr Side kSales{"iv", {"fv", "cv"}, {"00012", "00012"}, -1},
    kPurchases{"ia", {"fa", "ca"}, {"00011", "00014"}, 1},
    kReceipts{"ic", {"co", "co"}, {"00013", "00013"}, -1};

struct Entry {
  double line = 0;  // on the voices of the tax
  double rows = 0;  // the imposta of the VAT rows
};

template <std::size_t N>
bool has(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::string fiveDigits(std::string_view number) { return common::right(common::zeroFill(number, 5), 5); }

std::string keyOf(const Side& side, const rec::mc& row) {
  const bool purchase = side.archive == "ia";
  return row.registro + "/" + fiveDigits(purchase ? row.protocollo : row.numdoc) + "/" + row.datareg;
}
std::string keyOf(const rec::iv& row) {
  return row.registro + "/" + row.numero + "/" + common::DateToKey(row.datareg);
}
std::string keyOf(const rec::ia& row) {
  return row.registro + "/" + fiveDigits(row.protocollo) + "/" + common::DateToKey(row.datareg);
}
std::string keyOf(const rec::ic& row) { return row.registro + "/" + row.numero + "/" + row.datareg; }

template <class Each>
bool scanJournal(Session& session, const Side& side, const Each& each) {
  return scan<rec::mc>(session, 3900, 3901, 3902, [&](const archives::Archive<rec::mc>& mc) {
    if (has(side.causali, mc.B.causale)) each(mc);
  });
}

template <class R, class Each>
bool scanVatRows(Session& session, const Each& each) {
  return scan<R>(session, 3903, 3904, 3905, each);
}

using Entries = std::unordered_map<std::string, Entry>;

// Nothing when an archive cannot be read.
template <class R>
std::optional<Entries> readEntries(Session& session, const Side& side) {
  Entries entries;
  const bool journal = scanJournal(session, side, [&](const archives::Archive<rec::mc>& mc) {
    Entry& entry = entries[keyOf(side, mc.B)];
    if (has(side.voices, mc.B.conto)) entry.line += side.sign * (mc.B.dare - mc.B.avere);
  });
  const bool rows = scanVatRows<R>(session, [&](const archives::Archive<R>& vat) {
    const auto entry = entries.find(keyOf(vat.B));
    if (entry != entries.end()) entry->second.rows += vat.B.imposta;
  });
  if (!journal || !rows) return std::nullopt;
  return entries;
}

// Names the records of each violation, which bears its key in the map.
template <class R>
void nameRecords(Session& session, const Side& side, std::map<std::string, Violation>& violations) {
  const auto name = [&](const std::string& key, std::string record) {
    const auto found = violations.find(key);
    if (found != violations.end()) found->second.records.push_back(std::move(record));
  };
  scanJournal(session, side, [&](const archives::Archive<rec::mc>& mc) {
    if (has(side.voices, mc.B.conto)) name(keyOf(side, mc.B), "mc " + mc.primaryKey());
  });
  scanVatRows<R>(session, [&](const archives::Archive<R>& vat) {
    name(keyOf(vat.B), std::string(side.archive) + " " + vat.primaryKey());
  });
}

template <class R>
void checkSide(Session& session, const Side& side, std::vector<Violation>& violations) {
  const auto entries = readEntries<R>(session, side);
  if (!entries) {
    violations.push_back(
        {{}, "la prima nota o l'archivio " + std::string(side.archive) + " non si legge", {}, 0});
    return;
  }
  std::map<std::string, Violation> wrong;
  for (const auto& [key, entry] : *entries) {
    const double difference = common::roundBalance(entry.rows - entry.line);
    if (difference == 0) continue;
    wrong[key] = {{},
                  "registro/numero/data " + key + ": righe iva " + common::toText(entry.rows) +
                      ", prima nota " + common::toText(entry.line),
                  {},
                  difference};
  }
  if (!wrong.empty()) nameRecords<R>(session, side, wrong);
  for (auto& [key, violation] : wrong) violations.push_back(std::move(violation));
}

std::vector<Violation> checkVatRows(Session& session) {
  std::vector<Violation> violations;
  checkSide<rec::iv>(session, kSales, violations);
  checkSide<rec::ia>(session, kPurchases, violations);
  checkSide<rec::ic>(session, kReceipts, violations);
  return violations;
}

double settledResult(Session& session, const VatTable& table, const VatPeriod& period,
                     const rec::si& balances, bool wholeEuros) {
  auto rows = readSettlementRows(session, period, {}, false);
  if (!rows) return 0;
  SettlementTerms terms;
  terms.period = period;
  terms.previous = previousBalance(balances, period);
  terms.wholeEuros = wholeEuros;
  return settle(std::move(terms), *rows, table).result;
}

// Each balance that is kept, settled anew as that of its month and as that of its quarter.
std::vector<Violation> checkBalances(Session& session) {
  const auto table = loadVatTable(session);
  auto balances = table ? readVatBalances(session) : std::nullopt;
  if (!balances) return {{{}, "il saldo della liquidazione non si legge", {}, 0}};
  std::vector<Violation> found;
  for (int number = 1; number <= 12; ++number) {
    const double kept = saldoOf(*balances, number);
    if (kept == 0) continue;
    const double month = settledResult(session, *table, {VatPeriod::Length::month, number}, *balances, false);
    bool same = kept == month ||
                kept == settledResult(session, *table, {VatPeriod::Length::month, number}, *balances, true);
    for (const bool whole : {false, true})
      same = same ||
             (number <= 4 &&
              kept == settledResult(session, *table, {VatPeriod::Length::quarter, number}, *balances, whole));
    if (same) continue;
    found.push_back({{},
                     "il saldo del periodo " + std::to_string(number) + " è " + common::toText(kept) +
                         ", dalle righe risulta " + common::toText(month),
                     {"si 1"},
                     common::roundBalance(kept - month)});
  }
  return found;
}

constexpr Rule kRules[] = {
    {"VAT rows equal the VAT line", "Le righe iva sono quelle delle registrazioni", "Prima nota, Revisione",
     checkVatRows},
    {"kept balances are those of their settlement", "I saldi iva sono quelli della liquidazione",
     "Iva, Liquidazione o Variazione saldo", checkBalances, true},
};

}  // namespace

std::span<const Rule> vatRules() { return kRules; }

}  // namespace tarvex
