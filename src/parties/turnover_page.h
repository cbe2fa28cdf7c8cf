// The turnover of a customer by month: the year of the session and the two before it, loaded when asked for.
#pragma once

#include <array>
#include <string>

#include "parties/history.h"
#include "ui/chart.h"
#include "ui/form.h"

namespace tarvex {

class TurnoverPage {
 public:
  TurnoverPage(Session& session, ui::Form& form);
  ui::Layout layout() const;
  void start(const std::string& code);  // another customer: nothing is loaded yet

 private:
  static constexpr std::size_t kYears = 3;
  void load();
  void show(const std::array<MonthlyTurnover, kYears>& turnover);

  Session& session_;
  std::string code_;
  std::array<std::string, kYears> years_;  // the heads of the table are views of them
  ui::Button carica_;
  ui::List mesi_;
  ui::Chart grafico_;
};

}  // namespace tarvex
