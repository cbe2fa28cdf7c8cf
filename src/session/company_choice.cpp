#include "session/company_choice.h"

#include "session/company.h"

namespace tarvex {

using ui::Choice;

CompanyChoice::CompanyChoice(ui::Form& form, Session& session, std::string_view companyCaption,
                             std::string_view yearCaption)
    : company(form, "Combo1", companyCaption, Choice::Look::combo),
      year(form, "Combo2", yearCaption, Choice::Look::combo),
      session_(session) {
  company.onChange = [this] { showYears(); };
  company.onLeave = [this] {
    if (company.text() != shown_) showYears();
    return ui::Leave::go;
  };
}

void CompanyChoice::load() {
  company.setItems(companyNames(session_));
  shown_.clear();
  year.setItems({});
}

void CompanyChoice::showYears() {
  shown_ = company.text();
  year.setItems({});
  if (const std::optional<std::string> chosen = code()) year.setItems(yearsOf(session_, *chosen));
  if (onYears) onYears();
}

std::optional<std::string> CompanyChoice::code() const { return companyCode(session_, company.text()); }

}  // namespace tarvex
