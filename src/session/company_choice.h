// The two lists in which a form chooses a company and one of its years.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

class CompanyChoice {
 public:
  // Makes the controls Combo1 and Combo2 of `form`; `session` must outlive it.
  CompanyChoice(ui::Form& form, Session& session, std::string_view companyCaption,
                std::string_view yearCaption);

  void load();       // the names in use; none is chosen
  void showYears();  // of the company shown, found by trying its files; none is chosen

  std::optional<std::string> code() const;  // of the company shown; its record stands in dataz.B then

  std::function<void()> onYears;  // Combo2 has been filled anew
  ui::Choice company, year;

 private:
  Session& session_;
  std::string shown_;  // the company whose years stand in Combo2
};

}  // namespace tarvex
