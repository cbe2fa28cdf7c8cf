// The two dates that every book asks for.
#pragma once

#include <optional>

#include "ledger/books/journal_walk.h"
#include "ui/form.h"

namespace tarvex {

// Starts from the first day of the year of work up to today, or to its last day when today is in another.
class DateRangeFields {
 public:
  DateRangeFields(ui::Form& form, Session& session, std::string_view fromName, std::string_view toName);

  ui::Layout layout() const { return ui::row({dalla, alla}); }

  // Both through the check of dates, then their order: "La data finale è minore della data iniziale". Nothing
  // when one is refused, which the user has been told.
  std::optional<DateRange> read();

  // As it was read last, dd/mm/yyyy.
  std::string from() const { return dalla.text(); }
  std::string to() const { return alla.text(); }

 private:
  bool refused(ui::Field& field);

  Session& session_;
  ui::Field dalla, alla;
};

// From the first to the last day of the year of work.
DateRange wholeYear(const Session& session);

}  // namespace tarvex
