#include "ledger/scadenzario.h"

#include <algorithm>

#include "common/amount.h"
#include "common/date.h"
#include "ledger/entry_dues.h"
#include "ledger/revision.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class OpenInstalments : public Form {
 public:
  OpenInstalments(Session& session, std::vector<DueDate> dues);
  Layout layout() const override { return column({scadenze, buttons({ok, annulla})}); }
  std::vector<DueDate> chosen() const { return chosen_; }

 private:
  void accept();

  std::vector<DueDate> dues_, chosen_;
  List scadenze{*this,
                "scadenze",
                "Scadenze aperte",
                {{"N. fattura", 11}, {"Data fattura", 13}, {"Scadenza", 13}, {"Importo", 16, true}},
                List::Marks::several};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

OpenInstalments::OpenInstalments(Session& session, std::vector<DueDate> dues)
    : Form(session.desk(), "scadenzario", "Scadenzario"), dues_(std::move(dues)) {
  std::vector<std::vector<std::string>> rows;
  for (const DueDate& due : dues_)
    rows.push_back({plainNumber(due.numero), screenDate(due.datafatt), screenDate(due.scadenza),
                    common::toText(due.importo)});
  scadenze.setRows(std::move(rows));
  if (!dues_.empty()) scadenze.select(0);
  scadenze.onPick = ok.onPress = [this] { accept(); };
  annulla.onPress = [this] { close(); };
}

void OpenInstalments::accept() {
  for (const int row : scadenze.selectedRows()) chosen_.push_back(dues_[static_cast<std::size_t>(row)]);
  close();
}

bool names(const CollectionRow& row, const DueDate& due) {
  return !row.numero.empty() && sameNumber(row.numero, due.numero) &&
         common::DateToKey(row.datafatt) == due.datafatt && common::DateToKey(row.scadenza) == due.scadenza;
}

}  // namespace

std::vector<DueDate> chooseInstalments(Session& session, DueLedger ledger, const std::string& conto,
                                       const std::vector<CollectionRow>& taken) {
  auto dues = dueDatesOf(session, ledger, conto);
  std::erase_if(dues, [](const DueDate& due) { return !isOpen(due); });
  for (DueDate& due : dues) bearDocument(session, due);
  std::erase_if(dues, [&](const DueDate& due) {
    return std::ranges::any_of(taken, [&](const CollectionRow& row) { return names(row, due); });
  });
  std::ranges::stable_sort(dues, {}, &DueDate::scadenza);
  OpenInstalments form(session, std::move(dues));
  session.desk().run(form);
  return form.chosen();
}

}  // namespace tarvex
