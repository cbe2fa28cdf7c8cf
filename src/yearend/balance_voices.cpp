// The accounts of a balance, read from the chart or summed up from the journal.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "chart/voice.h"
#include "common/amount.h"
#include "common/currency.h"
#include "session/checks.h"
#include "session/scan.h"
#include "yearend/balance.h"

namespace tarvex {
namespace {

constexpr std::ptrdiff_t kMostAccounts = 2000;
constexpr std::string_view kGathering[] = {kCustomersConto, kSuppliersConto, kAgentsConto};

using Sums = std::unordered_map<std::string, common::Currency>;  // by voice, positive in debit

bool isOnItsOwn(const ChartVoice& voice) {
  return voice.tipo == "s" && (voice.natura == "p" || voice.natura == "e");
}

// Each voice on its own account, customers and their like on that of their conto.
std::optional<Sums> sumJournal(Session& session, const ChartVoices& voices, const DateRange& range) {
  constexpr std::size_t atOnce = 2000;
  const std::size_t all = journalRows(session);
  Sums sums;
  std::size_t done = 0;
  JournalWalk walk = JournalWalk::byNumber(session);
  while (const rec::mc* row = walk.next()) {
    if (++done % atOnce == 0 && !session.desk().progress(done, all)) return {};
    if (!range.holds(row->datareg)) continue;
    sums[row->conto] += common::toCurrency(row->dare) - common::toCurrency(row->avere);
  }
  if (!walk.isWhole()) return {};
  Sums accounts;
  for (const auto& [code, sum] : sums) {
    const auto voice = voices.find(code);
    if (voice == voices.end()) continue;  // verify tells it
    const std::string_view gathered = gatheringConto(voice->second);
    accounts[gathered.empty() ? code : std::string(gathered)] += sum;
  }
  return accounts;
}

// The balance sheet and the year's result are summed up one after the other.
bool isTooLong(const std::vector<BalanceAccount>& accounts) {
  for (const std::string_view natura : {"p", "e"})
    if (std::ranges::count(accounts, natura, [](const BalanceAccount& a) { return a.voice->natura; }) >
        kMostAccounts)
      return true;
  return false;
}

void sortByChart(std::vector<BalanceAccount>& accounts) {
  const auto place = [](const BalanceAccount& account) {
    const bool gathers = std::ranges::find(kGathering, account.code) != std::end(kGathering);
    return std::pair<int, std::string_view>(gathers ? 0 : 1, account.voice->codice);
  };
  std::ranges::sort(accounts, {}, place);
}

}  // namespace

std::string_view gatheringConto(const ChartVoice& voice) {
  if (voice.tipo == "c") return kCustomersConto;
  if (voice.tipo == "f") return kSuppliersConto;
  if (voice.tipo == "ag") return kAgentsConto;
  return {};
}

std::optional<ChartVoices> readChart(Session& session) {
  ChartVoices voices;
  const bool whole = scan<rec::pc>(session, 8300, 8301, 8302, [&](const archives::Archive<rec::pc>& pc) {
    const rec::pc& voice = pc.B;
    voices.emplace(pc.primaryKey(), ChartVoice{voice.ragsoc, voice.tipo, voice.natura, voice.mastro,
                                               voice.conto, voice.codice, voice.saldoiniziale, voice.saldo});
  });
  if (!whole) return {};
  return voices;
}

std::optional<std::vector<BalanceAccount>> readAccounts(Session& session, const ChartVoices& voices,
                                                        const BalanceSource& source) {
  std::optional<Sums> sums;
  if (source.range) {
    sums = sumJournal(session, voices, *source.range);
    if (!sums) return {};
  }
  std::vector<BalanceAccount> accounts;
  for (const auto& [code, voice] : voices) {
    const bool gathers = std::ranges::find(kGathering, code) != std::end(kGathering);
    if (!gathers && !isOnItsOwn(voice)) continue;
    double amount = voice.saldo;
    if (sums) {
      const auto sum = sums->find(code);
      amount = sum == sums->end() ? 0 : common::toDouble(sum->second);
    }
    amount = common::roundBalance(amount);
    if (amount != 0) accounts.push_back({code, &voice, amount});
  }
  if (source.range && isTooLong(accounts)) {
    runtimeError(session, "I conti da stampare sono più di " + std::to_string(kMostAccounts));
    return {};
  }
  sortByChart(accounts);
  return accounts;
}

}  // namespace tarvex
