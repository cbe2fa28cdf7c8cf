// Elenco sottoconti più usati, and RICERCAF, the window that picks from it.
#include "archives/ff.h"
#include "chart/account_field.h"
#include "chart/forms.h"
#include "chart/frequent.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Regfacil : public Form {
 public:
  explicit Regfacil(Session& session);
  Layout layout() const override {
    return column({row({voce, inserisci}), elenco, buttons({elimina, annulla})});
  }
  void load() override { list(); }

 private:
  void list();
  Leave leaveVoice();
  void insert();
  void remove();

  Session& session_;
  std::vector<FrequentVoice> voices_;  // as listed
  Field voce{*this, "text1", "Sottoconto:", Mask::text(30)};
  Button inserisci{*this, "inserisci", "&Inserisci", Button::Role::main};
  List elenco{*this, "elenco", "Sottoconti più usati", {{"Codice", 8}, {"Descrizione", 34}}};
  Button elimina{*this, "elimina", "&Elimina"};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Regfacil::Regfacil(Session& session)
    : Form(session.desk(), "REGFACIL", "Elenco sottoconti più usati"), session_(session) {
  accountField(session, voce, {"s", "c", "f", "ag"}, SearchList::postable);
  voce.onLeave = [this] { return leaveVoice(); };
  inserisci.onPress = [this] { insert(); };
  elimina.onPress = [this] { remove(); };
  annulla.onPress = [this] { close(); };
}

void Regfacil::list() {
  voices_ = readFrequent(session_).value_or(std::vector<FrequentVoice>());
  std::vector<std::vector<std::string>> rows;
  for (const FrequentVoice& voice : voices_) rows.push_back({voice.code, voice.name});
  elenco.setRows(std::move(rows));
}

// On a voice that may be posted to its record stands in session_.pc.
Leave Regfacil::leaveVoice() {
  if (voce.empty()) return Leave::go;
  const bool known = readVoice(session_, voce.text(), 1160);
  if (known && session_.pc.B.tipo != "m" && session_.pc.B.tipo != "cc") return Leave::go;
  desk().beep();
  return Leave::stay;
}

void Regfacil::insert() {
  if (voce.empty()) return desk().beep(), voce.focus();
  if (leaveVoice() == Leave::stay) return voce.focus();
  addFrequent(session_, session_.pc.primaryKey());
  list();
  voce.clear();
  voce.focus();
}

void Regfacil::remove() {
  if (elenco.selected() < 0) return desk().beep();
  removeFrequent(session_, voices_[static_cast<std::size_t>(elenco.selected())].code);
  list();
}

class Ricercaf : public Form {
 public:
  explicit Ricercaf(Session& session);
  Layout layout() const override { return column({elenco, buttons({ok, annulla})}); }
  const std::string& chosen() const { return chosen_; }

 private:
  void accept();
  void countUse(const std::string& code);

  Session& session_;
  std::vector<FrequentVoice> voices_;
  std::string chosen_;
  List elenco{*this, "elenco", "Sottoconti più usati", {{"Descrizione", 34}, {"Utilizzi", 10, true}}};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Ricercaf::Ricercaf(Session& session)
    : Form(session.desk(), "RICERCAF", "Sottoconti più usati"),
      session_(session),
      voices_(readFrequent(session).value_or(std::vector<FrequentVoice>())) {
  std::erase_if(voices_, [](const FrequentVoice& voice) { return voice.name.empty(); });
  std::vector<std::vector<std::string>> rows;
  for (const FrequentVoice& voice : voices_)
    rows.push_back({voice.name, std::to_string(static_cast<long>(voice.uses))});
  elenco.setRows(std::move(rows));
  if (!voices_.empty()) elenco.select(0);
  elenco.onPick = ok.onPress = [this] { accept(); };
  annulla.onPress = [this] { close(); };
}

void Ricercaf::accept() {
  if (elenco.selected() < 0) return desk().beep();
  const FrequentVoice& voice = voices_[static_cast<std::size_t>(elenco.selected())];
  countUse(voice.code);
  chosen_ = voice.name;
  close();
}

void Ricercaf::countUse(const std::string& code) {
  OpenArchive<rec::ff> ff(session_, 1161, 1162);
  ff->spinLock(code);
  if (ff->search(0, code) == store::kOk) {
    ff->A = ff->B;
    ++ff->A.utilizzi;
    ff->put(code, store::Put::rewrite);
    session_.CheckArchiveResult(store::Operation::write, ff->code, 1163);
    ff->flush();
  }
  ff->unlock(code);
}

}  // namespace

std::string pickFrequent(Session& session) {
  Ricercaf form(session);
  session.desk().run(form);
  return form.chosen();
}

std::unique_ptr<Form> makeRegfacil(Session& session) { return std::make_unique<Regfacil>(session); }

}  // namespace tarvex
