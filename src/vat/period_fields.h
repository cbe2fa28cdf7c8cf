// The choice of a month or a quarter, as the settlement screens ask for it.
#pragma once

#include <functional>

#include "session/session.h"
#include "ui/form.h"
#include "vat/settlement.h"

namespace tarvex {

// Starts from months, at the month of today.
class PeriodFields {
 public:
  PeriodFields(ui::Form& form, Session& session);

  VatPeriod period() const;
  bool isQuarterly() const { return cadenza.index() == 1; }
  ui::Layout layout() const;
  void setVisible(bool on);

  std::function<void()> onChange;

 private:
  void show();
  bool visible_ = true;

  ui::Choice cadenza;
  ui::Choice mese, trimestre;
};

}  // namespace tarvex
