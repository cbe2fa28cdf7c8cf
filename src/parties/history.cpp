#include "parties/history.h"

#include <algorithm>
#include <memory>

#include "archives/fa.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"

namespace tarvex {
namespace {

constexpr int kByCustomer = 26, kTurnoverByCustomer = 2;
constexpr std::size_t kDigits = 5;  // of a document's number, behind its register

std::string shownNumber(const std::string& number) {
  return common::format("#####", common::numberValue(common::right(number, kDigits)));
}

std::string shownShortDate(const std::string& key) {
  if (key.size() != 8) return {};
  const std::string date = common::KeyToDate(key);
  return common::SlashDateShort(date.substr(0, 4) + date.substr(6));
}

PartyDocument documentOf(const archives::Archive<rec::xx>& xx, std::span<const DocumentColumn> columns) {
  PartyDocument document{xx.primaryKey(), {}, {}};
  for (const DocumentColumn& column : columns) {
    const std::string& number = xx.B.*column.number;
    document.numbers.push_back(number.empty() ? std::string() : shownNumber(number));
    document.dates.push_back(number.empty() ? std::string() : shownShortDate(xx.B.*column.date));
  }
  return document;
}

}  // namespace

std::vector<PartyDocument> documentsOf(Session& session, std::string_view code,
                                       std::span<const DocumentColumn> columns) {
  std::vector<PartyDocument> found;
  OpenArchive<rec::xx> xx(session, 4300, 4301);
  if (!xx->isOpen()) return found;
  store::Code result = xx->search(kByCustomer, code);
  for (; result == store::kOk && xx->B.cliente == code; result = xx->next(kByCustomer))
    found.push_back(documentOf(*xx, columns));
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, xx->code, 4302);
  std::sort(found.begin(), found.end(),
            [](const PartyDocument& a, const PartyDocument& b) { return a.key < b.key; });
  return found;
}

std::vector<DueDate> openItemsOf(Session& session, DueLedger ledger, const std::string& code) {
  std::vector<DueDate> items = dueDatesOf(session, ledger, code);
  const std::string today = common::DateToKey(session.TodayText);
  std::erase_if(
      items, [&](const DueDate& due) { return !isOpen(due) || (due.emessa == "s" && due.scadenza < today); });
  std::stable_sort(items.begin(), items.end(),
                   [](const DueDate& a, const DueDate& b) { return a.scadenza < b.scadenza; });
  return items;
}

MonthlyTurnover turnoverOf(Session& session, std::string_view code, const std::string& year) {
  MonthlyTurnover months{};
  archives::Archive<rec::fa> fa(session.store);
  const store::Code opened = fa.open(session.stem("fa", year, session.CompanyCode));
  if (opened == store::kSystem) return months;
  session.CheckArchiveResult(store::Operation::open, fa.code, 4310);
  if (opened != store::kOk) return months;
  store::Code result = fa.search(kTurnoverByCustomer, code);
  for (; result == store::kOk && fa.B.cliente == code; result = fa.next(kTurnoverByCustomer)) {
    const double month = fa.B.data.size() == 8 ? common::numberValue(fa.B.data.substr(4, 2)) : 0;
    if (month >= 1 && month <= 12) months[static_cast<std::size_t>(month) - 1] += fa.B.importo;
  }
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, fa.code, 4311);
  fa.close();
  session.CheckArchiveResult(store::Operation::close, fa.code, 4312);
  for (double& month : months) month = common::roundBalance(month);
  return months;
}

}  // namespace tarvex
