#include "duedates/generate.h"

#include <algorithm>

#include "chart/account_field.h"
#include "common/currency.h"
#include "common/date.h"
#include "common/text.h"
#include "duedates/conditions.h"
#include "ui/desk.h"

namespace tarvex {
namespace {

constexpr int kMostInstalments = 4;
constexpr int kEndOfMonth = 30;                          // of cpag::giorno
constexpr int kAugustAtItsEnd = 1, kOnThe15thAfter = 2;  // of cpag::agosto

bool hasThirtyDays(int month) { return month == 4 || month == 6 || month == 9 || month == 11; }

// The years are these and no others. The end of February stops a list earlier than the cutting of a day that
// February has not: so these dates have always been reckoned, and schedules in use rely on them.
bool endsOnThe29th(int year) {
  return year == 1996 || year == 2000 || year == 2004 || year == 2008 || year == 2012;
}
bool takesThe29th(int year) { return endsOnThe29th(year) || year == 2016; }

// Walks from one due date to the next. The day stays as the condition wants it: a short month cuts it for
// its own date alone.
class DateWalk {
 public:
  DateWalk(const rec::cpag& condition, std::string_view date)
      : condition_(condition),
        year_(static_cast<int>(common::numberValue(date.substr(0, 4)))),
        month_(static_cast<int>(common::numberValue(date.substr(4, 2)))),
        day_(static_cast<int>(common::numberValue(date.substr(6, 2)))) {
    addMonths(condition.primarata);
  }

  std::string next() {
    if (condition_.saltaagosto == 1 && month_ == 8) month_ = 9;
    applyDayRule();
    int remembered = 0;
    applyAugust(remembered);
    std::string due =
        common::zeroFill(year_, 4) + common::zeroFill(month_, 2) + common::zeroFill(writtenDay(), 2);
    if (remembered != 0) {
      --month_;
      day_ = remembered;
    }
    addMonths(1);
    return due;
  }

 private:
  void addMonths(int months) {
    month_ += months;
    if (month_ <= 12) return;
    month_ -= 12;
    ++year_;
  }

  void applyDayRule() {
    const int rule = condition_.giorno;
    if (rule == kEndOfMonth) {
      day_ = hasThirtyDays(month_) ? 30 : 31;
      if (month_ == 2) day_ = endsOnThe29th(year_) ? 29 : 28;
    } else if (rule == 10 || rule == 15 || rule == 20) {
      if (day_ > rule) addMonths(1);
      day_ = rule;
    }
  }

  // What is due in August or December moves to the 15th after; the walk goes on from where it stood. From a
  // December so moved it goes on within January.
  void applyAugust(int& remembered) {
    if (month_ == 8 && condition_.agosto == kAugustAtItsEnd) day_ = 31;
    if (condition_.agosto != kOnThe15thAfter) return;
    if (month_ != 8 && month_ != 12) return;
    remembered = day_;
    day_ = 15;
    addMonths(1);
  }

  int writtenDay() const {
    if (hasThirtyDays(month_)) return std::min(day_, 30);
    if (month_ == 2 && day_ >= 29) return takesThe29th(year_) ? 29 : 28;
    return day_;
  }

  const rec::cpag& condition_;
  int year_, month_, day_;
};

// Customers by the kind of the condition, suppliers and agents all in one; other voices have no ledger.
std::optional<DueLedger> ledgerFor(std::string_view kind, std::string_view tipo) {
  if (kind == "f" || kind == "ag") return DueLedger::sf;
  if (kind != "c") return {};
  if (tipo == "rd") return DueLedger::sd;
  if (tipo == "rb") return DueLedger::st;
  return {};
}

const DueDate* takenOver(const std::vector<DueDate>& replaced, const DueDate& due) {
  const auto found = std::find_if(replaced.begin(), replaced.end(), [&](const DueDate& old) {
    return (!old.pagamento.empty() || !old.emessa.empty()) && old.ledger == due.ledger &&
           old.datafatt == due.datafatt && old.scadenza == due.scadenza && sameNumber(old.numero, due.numero);
  });
  return found == replaced.end() ? nullptr : &*found;
}

DocumentInstalments writtenReceipts(const DueDates& dates) {
  DocumentInstalments receipts;
  if (dates.ledger != DueLedger::st) return receipts;
  const std::size_t count = std::min(dates.instalments.size(), receipts.RateDocumento.size());
  for (std::size_t i = 0; i < count; ++i) {
    receipts.ScadenzeDocumento[i] = common::SlashDate(common::KeyToDate(dates.instalments[i].scadenza));
    receipts.RateDocumento[i] = dates.instalments[i].importo;
  }
  return receipts;
}

DocumentInstalments writtenAndTold(Session& session, const DueDates& dates) {
  writeDueDates(session, dates);
  tellMissingCondition(session, dates);
  return writtenReceipts(dates);
}

}  // namespace

std::vector<Instalment> instalmentsOf(const rec::cpag& condition, double amount, std::string_view date) {
  if (condition.tipo.empty()) return {};
  const int count = std::min<int>(condition.numrate, kMostInstalments);
  if (count < 1 || amount < 0) return {{std::string(date), amount}};
  const double quota = common::cutInstalment(amount, count);
  const common::Currency rest = common::toCurrency(amount) - count * common::toCurrency(quota);
  DateWalk walk(condition, date);
  std::vector<Instalment> instalments;
  for (int i = 0; i < count; ++i) instalments.push_back({walk.next(), quota});
  instalments.front().importo = common::toDouble(common::toCurrency(quota) + rest);
  return instalments;
}

DueDates dueDatesFor(Session& session, double amount, std::string_view number, std::string_view date,
                     std::string_view account) {
  if (!readVoiceByCode(session, account, 3520)) return {};
  const std::string condition = session.pc.B.pagamento;
  return dueDatesByCondition(session, condition, amount, number, date, account);
}

DueDates dueDatesByCondition(Session& session, std::string_view condition, double amount,
                             std::string_view number, std::string_view date, std::string_view account) {
  DueDates dates{.numero = std::string(number),
                 .datafatt = std::string(date),
                 .conto = std::string(account),
                 .tipo = {}};
  if (condition.empty() || !readVoiceByCode(session, account, 3521)) return dates;
  const std::string kind = session.pc.B.tipo;
  const auto found = readCondition(session, condition);
  if (!found) {
    dates.missingCondition = condition;
    return dates;
  }
  rec::cpag terms = found->condition;
  if (terms.tipo.empty()) return dates;
  if (amount < 0) terms.tipo = "rd";
  const auto ledger = ledgerFor(kind, terms.tipo);
  if (!ledger) return dates;
  dates.ledger = *ledger;
  dates.tipo = terms.tipo;
  dates.instalments = instalmentsOf(terms, amount, date);
  return dates;
}

void writeDueDates(Session& session, const DueDates& dates, std::vector<DueDate> replaced) {
  for (const Instalment& instalment : dates.instalments) {
    DueDate due{.ledger = dates.ledger,
                .numero = dates.numero,
                .datafatt = dates.datafatt,
                .conto = dates.conto,
                .importo = instalment.importo,
                .scadenza = instalment.scadenza,
                .tipo = dates.tipo};
    const DueDate* old = takenOver(replaced, due);
    if (!old) {
      addDueDate(session, due);
      continue;
    }
    due.key = old->key;
    due.pagamento = old->pagamento;
    due.emessa = old->emessa;
    putDueDateBack(session, due);
    replaced.erase(replaced.begin() + (old - replaced.data()));
  }
}

void tellMissingCondition(Session& session, const DueDates& dates) {
  if (dates.missingCondition.empty()) return;
  session.desk().refuse("La condizione di pagamento " + dates.missingCondition +
                        " non risulta più registrata");
}

DocumentInstalments GenerateDueDates(Session& session, double amount, std::string_view number,
                                     std::string_view date, std::string_view account) {
  return writtenAndTold(session, dueDatesFor(session, amount, number, date, account));
}

DocumentInstalments GenerateDueDatesForDocument(Session& session, std::string_view condition, double amount,
                                                std::string_view number, std::string_view date,
                                                std::string_view account) {
  return writtenAndTold(session, dueDatesByCondition(session, condition, amount, number, date, account));
}

}  // namespace tarvex
