// Scelte iniziali: azienda, anno di lavoro, magazzino.
#include "common/text.h"
#include "session/company.h"
#include "session/company_choice.h"
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
  void showWarehouses();
  void confirm();
  void newCompany();

  Session& session_;
  CompanyChoice choice{*this, session_, "A&zienda", "&Anno di lavoro"};
  Choice combo3{*this, "Combo3", "&Magazzino", Choice::Look::combo};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button nuova{*this, "nuova", "&Nuova azienda"};
};

Scelta::Scelta(Session& session) : Form(session.desk(), "SCELTA", "Scelte iniziali"), session_(session) {
  choice.onYears = [this] { combo3.setItems({}); };
  choice.year.onChange = [this] { showWarehouses(); };
  ok.onPress = [this] { confirm(); };
  nuova.onPress = [this] { newCompany(); };
}

Layout Scelta::layout() const {
  return column({row({choice.company}), row({choice.year}), row({combo3}), buttons({ok, nuova})});
}

void Scelta::load() {
  choice.load();
  const std::optional<std::string> last = firstLine(session_.DataDirectory + "www");
  if (!last) {
    desk().refuse("Non è stato trovato il file www");
    return;
  }
  if (choice.company.selectText(*last)) choice.showYears();
}

void Scelta::showWarehouses() {
  combo3.setItems({});
  const std::optional<std::string> code = choice.code();
  if (!code) return;
  const int count = warehousesOf(session_, *code, choice.year.text());
  for (int number = 1; number <= count; ++number) combo3.addItem(common::zeroFill(number, 2));
  if (count > 0) combo3.select(0);
}

void Scelta::confirm() {
  if (choice.company.text().empty() || choice.year.text().empty()) return;
  const std::string warehouse = combo3.text().empty() ? "01" : combo3.text();
  const Opening opening = openCompany(session_, choice.company.text(), choice.year.text(), warehouse);
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
