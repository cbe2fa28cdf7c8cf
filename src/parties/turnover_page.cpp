#include "parties/turnover_page.h"

#include <numeric>

#include "common/mask.h"
#include "common/text.h"

namespace tarvex {

using namespace ui;

namespace {

std::string amount(double value) { return common::format("###,###,##0.00", value); }

std::array<std::string, 3> yearsTo(const std::string& last) {
  const auto year = static_cast<long long>(common::numberValue(last));
  return {last, common::zeroFill(year - 1, 4), common::zeroFill(year - 2, 4)};
}

}  // namespace

TurnoverPage::TurnoverPage(Session& session, Form& form)
    : session_(session),
      years_(yearsTo(session.WorkYear)),
      carica_(form, "carica", "&Carica dati"),
      mesi_(form, "mesi", "Fatturato per mese",
            {{"Mese", 10}, {years_[0], 13, true}, {years_[1], 13, true}, {years_[2], 13, true}}),
      grafico_(form, "grafico", "Andamento") {
  carica_.onPress = [this] { load(); };
}

Layout TurnoverPage::layout() const {
  return column({side({column({mesi_}), column({grafico_})}), buttons({carica_})});
}

void TurnoverPage::start(const std::string& code) {
  code_ = code;
  mesi_.setRows(std::vector<std::vector<std::string>>());
  grafico_.clear();
}

void TurnoverPage::load() {
  if (code_.empty()) return session_.desk().beep();
  const Busy busy(session_.desk());
  std::array<MonthlyTurnover, kYears> turnover;
  for (std::size_t back = 0; back < kYears; ++back)
    turnover[back] = turnoverOf(session_, code_, years_[back]);
  show(turnover);
}

void TurnoverPage::show(const std::array<MonthlyTurnover, kYears>& turnover) {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> totals{"Totale"};
  for (std::size_t month = 0; month < turnover[0].size(); ++month) {
    rows.push_back({session_.MonthNames[month + 1]});
    for (const MonthlyTurnover& year : turnover) rows.back().push_back(amount(year[month]));
  }
  for (const MonthlyTurnover& year : turnover)
    totals.push_back(amount(std::accumulate(year.begin(), year.end(), 0.0)));
  rows.push_back(std::move(totals));
  mesi_.setRows(std::move(rows));
  std::vector<Series> series;
  for (std::size_t back = 0; back < kYears; ++back)
    series.push_back({years_[back], {turnover[back].begin(), turnover[back].end()}});
  grafico_.show({session_.MonthNames.begin() + 1, session_.MonthNames.end()}, std::move(series));
}

}  // namespace tarvex
