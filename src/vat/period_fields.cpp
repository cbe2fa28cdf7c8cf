#include "vat/period_fields.h"

#include "common/text.h"

namespace tarvex {

using ui::Choice;

PeriodFields::PeriodFields(ui::Form& form, Session& session)
    : cadenza(form, "cadenza", "Periodo", Choice::Look::options, {"&Mensile", "&Trimestrale"}),
      mese(form, "mese", "Mese:", Choice::Look::combo),
      trimestre(form, "trimestre", "Trimestre:", Choice::Look::combo, {"1°", "2°", "3°", "4°"}) {
  const int today = static_cast<int>(common::numberValue(session.TodayText.substr(3, 2)));
  mese.setItems({session.MonthNames.begin() + 1, session.MonthNames.end()});
  mese.select(today - 1);
  trimestre.select((today - 1) / 3);
  cadenza.select(0);
  // There is always a period: a choice that was cleared falls back to the first.
  for (Choice* choice : {&cadenza, &mese, &trimestre})
    choice->onChange = [this, choice] {
      if (choice->index() < 0) choice->select(0);
      show();
      if (onChange) onChange();
    };
  show();
}

void PeriodFields::show() {
  cadenza.setVisible(visible_);
  mese.setVisible(visible_ && !isQuarterly());
  trimestre.setVisible(visible_ && isQuarterly());
}

void PeriodFields::setVisible(bool on) {
  visible_ = on;
  show();
}

VatPeriod PeriodFields::period() const {
  if (isQuarterly()) return {VatPeriod::Length::quarter, trimestre.index() + 1};
  return {VatPeriod::Length::month, mese.index() + 1};
}

ui::Layout PeriodFields::layout() const {
  return ui::column({ui::row({cadenza}), ui::row({mese, trimestre})});
}

}  // namespace tarvex
