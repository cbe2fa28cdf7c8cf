// Ricerca cliente/fornitore: by any part of its name, its address, its numbers.
#include "chart/forms.h"
#include "common/text.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr int kByKindAndName = 58;

class Trova : public Form {
 public:
  explicit Trova(Session& session);
  Layout layout() const override;

 private:
  void find();

  Session& session_;
  Field testo{*this, "text1", "Trova:", Mask::text(40)};
  Choice tipo{*this, "tipo", {}, Choice::Look::options, {"C&liente", "&Fornitore"}};
  Button cerca{*this, "cerca", "Ce&rca", Button::Role::main};
  List esito{*this, "esito", "Risultato", {{"Ragione sociale", 32}, {"Indirizzo", 32}, {"Città", 26}}};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Trova::Trova(Session& session)
    : Form(session.desk(), "TROVA", "Ricerca cliente/fornitore"), session_(session) {
  tipo.select(0);
  testo.on(Key::enter, [this] { find(); });
  cerca.onPress = [this] { find(); };
  chiudi.onPress = [this] { close(); };
}

Layout Trova::layout() const { return column({row({testo, tipo, cerca}), esito, buttons({chiudi})}); }

void Trova::find() {
  const Busy busy(desk());
  const std::string wanted = common::upper(common::trim(testo.text()));
  const std::string kind = tipo.index() == 1 ? "f" : "c";
  std::vector<std::vector<std::string>> rows;
  auto& pc = session_.pc;
  store::Code result = pc.search(kByKindAndName, kind);
  if (result == store::kNotFound) result = pc.next(kByKindAndName);
  for (; result == store::kOk && pc.B.tipo == kind; result = pc.next(kByKindAndName)) {
    const rec::pc& v = pc.B;
    for (const std::string* text :
         {&v.ragsoc, &v.ragsoc2, &v.indirizzo, &v.citta, &v.partitaiva, &v.telefono, &v.fax}) {
      if (common::upper(*text).find(wanted) == std::string::npos) continue;
      rows.push_back({v.ragsoc, v.indirizzo, v.citta});
      break;
    }
  }
  if (result != store::kOk && result != store::kNotFound)
    session_.CheckArchiveResult(store::Operation::read, pc.code, 1142);
  if (rows.empty()) desk().beep();
  esito.setRows(std::move(rows));
}

}  // namespace

std::unique_ptr<Form> makeTrova(Session& session) { return std::make_unique<Trova>(session); }

}  // namespace tarvex
