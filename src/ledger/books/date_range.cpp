#include "ledger/books/date_range.h"

#include "common/date.h"
#include "session/checks.h"

namespace tarvex {

DateRangeFields::DateRangeFields(ui::Form& form, Session& session, std::string_view fromName,
                                 std::string_view toName)
    : session_(session),
      dalla(form, fromName, "Dalla data:", ui::Mask::pattern(session.YearDateMask)),
      alla(form, toName, "Alla data:", ui::Mask::pattern(session.YearDateMask)) {
  dalla.setText(session.YearStartDate);
  alla.setText(lastDayShown(session));
}

bool DateRangeFields::refused(ui::Field& field) {
  std::string date = field.text();
  if (ValidateDate(session_, date)) return false;
  field.focus();
  return true;
}

std::optional<DateRange> DateRangeFields::read() {
  if (refused(dalla) || refused(alla)) return {};
  DateRange range{common::DateToKey(dalla.text()), common::DateToKey(alla.text())};
  if (range.from <= range.to) return range;
  session_.desk().refuse("La data finale è minore della data iniziale", alla);
  return {};
}

DateRange wholeYear(const Session& session) { return {session.WorkYear + "0101", session.WorkYear + "1231"}; }

}  // namespace tarvex
