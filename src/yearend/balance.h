// The balance as values: the accounts of the chart on four sides, out of their balances or recomputed from
// the journal. Nothing here asks the user or writes.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ledger/books/journal_walk.h"
#include "session/trace.h"
#include "ui/report.h"
#include "ui/sheet.h"

namespace tarvex {

// A voice of the chart, as far as the balance asks.
struct ChartVoice {
  std::string name, tipo, natura, mastro, conto, codice;
  double opening = 0, saldo = 0;
};
using ChartVoices = std::unordered_map<std::string, ChartVoice>;  // by code

// What an account comes to: positive in debit.
struct BalanceAccount {
  std::string code;
  const ChartVoice* voice;
  double amount = 0;
};

struct BalanceSource {
  std::optional<DateRange>
      range;  // the rows of the journal registered in it; none: the balances of the chart
};

// Customers, suppliers and agents stand in the balance as one account each: their conto.
std::string_view gatheringConto(const ChartVoice& voice);  // empty for any other voice

// Nothing when the archive cannot be read to its end, which has been reported.
std::optional<ChartVoices> readChart(Session& session);

// The accounts with an amount in the order of the chart, the conti of customers, suppliers and agents before
// all others. Holds on to `voices`. Nothing when an archive cannot be read, or there are more accounts than a
// print holds, which has been reported.
std::optional<std::vector<BalanceAccount>> readAccounts(Session& session, const ChartVoices& voices,
                                                        const BalanceSource& source);

struct BalanceLine {
  enum class Kind { mastro, conto, account } kind;
  std::string code, name;
  double amount = 0;  // of an account: positive on its side
};

enum class BalanceSide { assets, liabilities, costs, revenues };
inline constexpr std::array<BalanceSide, 4> kBalanceSides{BalanceSide::assets, BalanceSide::liabilities,
                                                          BalanceSide::costs, BalanceSide::revenues};

struct BalanceHalf {
  std::vector<BalanceLine> lines;
  double total = 0;  // of its accounts
};

struct Balance {
  std::array<BalanceHalf, 4> halves;  // by side

  const BalanceHalf& half(BalanceSide side) const { return halves[static_cast<std::size_t>(side)]; }
  // What a side is short of the side beside it: the result of the year, which it shows; otherwise 0.
  double missing(BalanceSide side) const;
  double levelled(BalanceSide side) const;  // the total of both sides of a section
};

// A debit stands with the assets or the costs, a credit with the liabilities or the revenues, by the kind of
// the account.
Balance makeBalance(const std::vector<BalanceAccount>& accounts, const ChartVoices& voices);

std::string_view resultName(BalanceSide side);  // "Utile d'esercizio", "Perdita d'esercizio"
bool isOfYear(BalanceSide side);                // costs and revenues: the section "PROFITTI E PERDITE"
std::string_view spacedName(BalanceSide side);  // "A T T I V I T A'"
std::string_view plainName(BalanceSide side);   // "ATTIVITA'"

struct BalancePage {
  BalanceSource source;
  std::string today, company;
};
std::shared_ptr<const ui::Report> layOut(const Balance& balance, const BalancePage& page, ui::Setup setup);

// The same content in the same order as cells.
ui::Sheet sheetOf(const Balance& balance);

// Each account with what makes it, and each total with its accounts.
Trace traceOf(Session& session, std::shared_ptr<const ChartVoices> voices, const Balance& balance,
              const BalanceSource& source);

}  // namespace tarvex
