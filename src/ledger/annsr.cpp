// Annullamento singola registrazione: takes one row of the journal back, by the number under which the
// control listing shows it. The rest of its entry stays, and so do its VAT rows: what does not balance is
// told by "Verifica".
#include "chart/account_field.h"
#include "common/amount.h"
#include "common/text.h"
#include "ledger/books/journal_walk.h"
#include "ledger/forms.h"
#include "ledger/removal.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Annsr : public Form {
 public:
  explicit Annsr(Session& session);
  Layout layout() const override;

 private:
  std::optional<rec::mc> read();
  void show();
  void remove();

  Session& session_;
  Field numero{*this, "text1", "Numero registrazione:", Mask::digits(8)};
  Label data{*this, "data", "Data:", 12};
  Label movimento{*this, "movimento", "Movimento:", 10};
  Label descrizione{*this, "descrizione", "Descrizione:", 50};
  Label sottoconto{*this, "sottoconto", "Sottoconto:", 32};
  Label dare{*this, "dare", "Dare:", 16};
  Label avere{*this, "avere", "Avere:", 16};
  Button elimina{*this, "elimina", "&Elimina", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Annsr::Annsr(Session& session)
    : Form(session.desk(), "annsr", "Annullamento singola registrazione"), session_(session) {
  numero.onLeave = [this] { return show(), Leave::go; };
  elimina.onPress = [this] { remove(); };
  annulla.onPress = [this] { close(); };
}

Layout Annsr::layout() const {
  return column({group("Registrazione", {row({numero}), row({data, movimento}), row({descrizione}),
                                         row({sottoconto}), row({dare, avere})}),
                 space(), buttons({elimina, annulla})});
}

// The row of the number typed; nothing when there is none.
std::optional<rec::mc> Annsr::read() {
  if (numero.empty()) return {};
  OpenArchive<rec::mc> mc(session_, 2010, 2011);
  if (!mc->isOpen()) return {};
  if (mc->search(0, common::zeroFill(numero.text(), 8)) == store::kOk) return mc->B;
  if (session_.store.LastArchiveResult != store::kNotFound)
    session_.CheckArchiveResult(store::Operation::read, mc->code, 2012);
  return {};
}

void Annsr::show() {
  const auto row = read();
  const rec::mc shown = row.value_or(rec::mc{});
  data.setText(dateOf(shown.datareg));
  movimento.setText(shown.nummov);
  descrizione.setText(shown.descrizione);
  sottoconto.setText(row && readVoiceByCode(session_, shown.conto, 2013) ? session_.pc.B.ragsoc
                                                                         : std::string());
  dare.setText(row ? common::toText(shown.dare) : std::string());
  avere.setText(row ? common::toText(shown.avere) : std::string());
}

void Annsr::remove() {
  if (numero.empty()) return desk().refuse("Non è stato inserito il numero della registrazione", numero);
  const auto row = read();
  if (!row) return desk().refuse("Registrazione non trovata", numero);
  if (row->daemissione == 1)
    return desk().warn("La registrazione è stata effettuata con l'emissione documenti");
  if (!desk().confirm("Si vuole annullare la registrazione n. " + numero.text() + " ?", "ATTENZIONE", true))
    return;
  if (!removeRow(session_, common::zeroFill(numero.text(), 8))) return;
  numero.clear();
  show();
  numero.focus();
}

}  // namespace

std::unique_ptr<Form> makeAnnsr(Session& session) { return std::make_unique<Annsr>(session); }

}  // namespace tarvex
