// What makes each figure of a balance.
#include <algorithm>
#include <cmath>
#include <utility>

#include "common/amount.h"
#include "common/text.h"
#include "ledger/books/date_range.h"
#include "yearend/balance.h"

namespace tarvex {
namespace {

using Steps = std::vector<TraceStep>;

std::string textOf(const rec::mc& row) {
  return dateOf(row.datareg) + "  " + documentOf(row) + "  " + common::cut(row.descrizione, 37);
}

// The rows of a voice in the order of their dates, positive in debit.
void addRows(Session& session, const std::string& code, const DateRange& range, Steps& steps) {
  JournalWalk walk = JournalWalk::byVoice(session, code, range);
  while (const rec::mc* row = walk.next()) steps.push_back({textOf(*row), row->dare - row->avere});
}

double sumOfRows(Session& session, const std::string& code, const DateRange& range) {
  Steps rows;
  addRows(session, code, range, rows);
  double sum = 0;
  for (const TraceStep& row : rows) sum = common::roundBalance(sum + row.amount);
  return sum;
}

struct Asked {
  Session& session;
  std::shared_ptr<const ChartVoices> voices;
  BalanceSource source;
  bool openingPosted;

  DateRange range() const { return source.range.value_or(wholeYear(session)); }
};

// Of a voice its opening and its rows; out of the chart, too, what the rows do not explain.
Steps voiceSteps(const Asked& asked, const std::string& code) {
  Steps steps;
  const ChartVoice& voice = asked.voices->at(code);
  if (!asked.source.range && !asked.openingPosted && voice.opening != 0)
    steps.push_back({"Saldo iniziale", voice.opening});
  addRows(asked.session, code, asked.range(), steps);
  return steps;
}

// Of a conto that gathers: each of its voices.
Steps gatheredSteps(const Asked& asked, const std::string& conto) {
  Steps steps;
  for (const auto& [code, voice] : *asked.voices) {
    if (gatheringConto(voice) != conto) continue;
    const double amount = asked.source.range ? sumOfRows(asked.session, code, asked.range())
                                             : common::roundBalance(voice.saldo);
    if (amount != 0) steps.push_back({voice.name, amount});
  }
  std::ranges::sort(steps, {}, &TraceStep::text);
  return steps;
}

// The steps on the side where the account stands, closed where they do not make its amount.
Steps accountSteps(const Asked& asked, const BalanceLine& line, bool isDebitSide) {
  Steps steps = asked.voices->at(line.code).tipo == "cc" ? gatheredSteps(asked, line.code)
                                                         : voiceSteps(asked, line.code);
  double sum = 0;
  for (TraceStep& step : steps) {
    if (!isDebitSide) step.amount = -step.amount;
    sum += step.amount;
  }
  const double difference = common::roundBalance(line.amount - sum);
  if (difference != 0) steps.push_back({"Differenza fra i progressivi e il giornale", difference});
  return steps;
}

Steps totalSteps(const Balance& balance, BalanceSide side) {
  Steps steps;
  for (const BalanceLine& line : balance.half(side).lines)
    if (line.kind == BalanceLine::Kind::account) steps.push_back({line.name, line.amount});
  if (const double missing = balance.missing(side); missing != 0)
    steps.push_back({std::string(resultName(side)), missing});
  return steps;
}

}  // namespace

Trace traceOf(Session& session, std::shared_ptr<const ChartVoices> voices, const Balance& balance,
              const BalanceSource& source) {
  const auto kept = std::make_shared<const Balance>(balance);
  const Asked asked{session, std::move(voices), source, isOpeningPosted(session)};
  Trace trace;
  for (const BalanceSide side : kBalanceSides) {
    trace.push_back({std::string(plainName(side)) + ": totale a pareggio", balance.levelled(side),
                     [kept, side] { return totalSteps(*kept, side); }});
    const bool isDebitSide = side == BalanceSide::assets || side == BalanceSide::costs;
    for (const BalanceLine& line : balance.half(side).lines)
      if (line.kind == BalanceLine::Kind::account)
        trace.push_back({"   " + line.name, line.amount,
                         [asked, line, isDebitSide] { return accountSteps(asked, line, isDebitSide); }});
  }
  return trace;
}

}  // namespace tarvex
