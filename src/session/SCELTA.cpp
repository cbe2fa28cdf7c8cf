// Scelte iniziali: azienda, anno di lavoro, magazzino.
#include "common/text.h"
#include "session/company.h"
#include "session/forms.h"
#include "session/text_file.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Scelta : public Form {
 public:
  explicit Scelta(Session& session);
  Layout layout() const override;
  void load() override;

 private:
  void showYears();
  void showWarehouses();
  void confirm();
  void newCompany();

  Session& session_;
  std::string shown_;  // the company whose years stand in Combo2
  Choice combo1{*this, "Combo1", "A&zienda", Choice::Look::combo};
  Choice combo2{*this, "Combo2", "&Anno di lavoro", Choice::Look::combo};
  Choice combo3{*this, "Combo3", "&Magazzino", Choice::Look::combo};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button nuova{*this, "nuova", "&Nuova azienda"};
};

Scelta::Scelta(Session& session) : Form(session.desk(), "SCELTA", "Scelte iniziali"), session_(session) {
  combo1.onChange = [this] { showYears(); };
  combo1.onLeave = [this] {
    if (combo1.text() != shown_) showYears();
    return Leave::go;
  };
  combo2.onChange = [this] { showWarehouses(); };
  ok.onPress = [this] { confirm(); };
  nuova.onPress = [this] { newCompany(); };
}

Layout Scelta::layout() const {
  return column({row({combo1}), row({combo2}), row({combo3}), buttons({ok, nuova})});
}

void Scelta::load() {
  combo1.setItems(companyNames(session_));
  const std::optional<std::string> last = firstLine(session_.DataDirectory + "www");
  if (!last) {
    desk().refuse("Non è stato trovato il file www");
    return;
  }
  if (combo1.selectText(*last)) showYears();
}

void Scelta::showYears() {
  shown_ = combo1.text();
  combo2.setItems({});
  combo3.setItems({});
  if (const std::optional<std::string> code = companyCode(session_, shown_))
    combo2.setItems(yearsOf(session_, *code));
}

void Scelta::showWarehouses() {
  combo3.setItems({});
  const std::optional<std::string> code = companyCode(session_, combo1.text());
  if (!code) return;
  const int count = warehousesOf(session_, *code, combo2.text());
  for (int number = 1; number <= count; ++number) combo3.addItem(common::zeroFill(number, 2));
  if (count > 0) combo3.select(0);
}

void Scelta::confirm() {
  if (combo1.text().empty() || combo2.text().empty()) return;
  const std::string warehouse = combo3.text().empty() ? "01" : combo3.text();
  const Opening opening = openCompany(session_, combo1.text(), combo2.text(), warehouse);
  if (opening == Opening::notThere) desk().refuse("Archivi azienda non aperti");
  if (opening == Opening::done) close();
}

void Scelta::newCompany() {
  session_.run("APRIAZ");
  if (session_.isCompanyOpen()) close();
}

}  // namespace

std::unique_ptr<ui::Form> makeScelta(Session& session) { return std::make_unique<Scelta>(session); }

}  // namespace tarvex
