#include "yearend/balance.h"

#include <algorithm>
#include <cmath>

#include "common/amount.h"

namespace tarvex {
namespace {

BalanceSide sideOf(const BalanceAccount& account) {
  const bool isDebit = account.amount > 0;
  if (account.voice->natura == "e") return isDebit ? BalanceSide::costs : BalanceSide::revenues;
  return isDebit ? BalanceSide::assets : BalanceSide::liabilities;
}

BalanceSide besides(BalanceSide side) {
  switch (side) {
    case BalanceSide::assets:
      return BalanceSide::liabilities;
    case BalanceSide::liabilities:
      return BalanceSide::assets;
    case BalanceSide::costs:
      return BalanceSide::revenues;
    default:
      return BalanceSide::costs;
  }
}

// Adds accounts to one side, each mastro and conto headed once.
class HalfWriter {
 public:
  HalfWriter(BalanceHalf& half, const ChartVoices& voices) : half_(half), voices_(voices) {}

  void add(const BalanceAccount& account) {
    const ChartVoice& voice = *account.voice;
    head(BalanceLine::Kind::mastro, voice.mastro, mastro_);
    if (voice.tipo != "cc") head(BalanceLine::Kind::conto, voice.conto, conto_);
    const double amount = std::abs(account.amount);
    half_.lines.push_back({BalanceLine::Kind::account, account.code, voice.name, amount});
    half_.total = common::roundBalance(half_.total + amount);
  }

 private:
  void head(BalanceLine::Kind kind, const std::string& code, std::string& last) {
    if (code.empty() || code == last) return;
    last = code;
    if (kind == BalanceLine::Kind::mastro) conto_.clear();
    const auto found = voices_.find(code);
    if (found != voices_.end()) half_.lines.push_back({kind, code, found->second.name});
  }

  BalanceHalf& half_;
  const ChartVoices& voices_;
  std::string mastro_, conto_;
};

}  // namespace

Balance makeBalance(const std::vector<BalanceAccount>& accounts, const ChartVoices& voices) {
  Balance balance;
  std::vector<HalfWriter> writers;
  for (BalanceHalf& half : balance.halves) writers.emplace_back(half, voices);
  for (const BalanceAccount& account : accounts)
    writers[static_cast<std::size_t>(sideOf(account))].add(account);
  return balance;
}

double Balance::missing(BalanceSide side) const {
  return std::max(0.0, common::roundBalance(half(besides(side)).total - half(side).total));
}

double Balance::levelled(BalanceSide side) const {
  return std::max(half(side).total, half(besides(side)).total);
}

bool isOfYear(BalanceSide side) { return side == BalanceSide::costs || side == BalanceSide::revenues; }

std::string_view resultName(BalanceSide side) {
  return side == BalanceSide::assets || side == BalanceSide::revenues ? "Perdita d'esercizio"
                                                                      : "Utile d'esercizio";
}

std::string_view spacedName(BalanceSide side) {
  constexpr std::string_view names[] = {"A T T I V I T A'", "P A S S I V I T A'", "C O S T I", "R I C A V I"};
  return names[static_cast<std::size_t>(side)];
}

std::string_view plainName(BalanceSide side) {
  constexpr std::string_view names[] = {"ATTIVITA'", "PASSIVITA'", "COSTI", "RICAVI"};
  return names[static_cast<std::size_t>(side)];
}

}  // namespace tarvex
