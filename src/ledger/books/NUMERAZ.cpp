// Numerazione fogli: blank sheets that bear the company and a running number, for books that are printed on
// sheets numbered beforehand.
#include "ledger/books/forms.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::size_t kWidth = 80;
constexpr int kMostSheets = 2000;

class Numeraz : public Form {
 public:
  explicit Numeraz(Session& session);
  Layout layout() const override;

 private:
  void print();

  Session& session_;
  Field testo{*this, "testo", "Intestazione:", Mask::text(60)};
  Field dal{*this, "dal", "Dal foglio n.:", Mask::digits(6)};
  Field al{*this, "al", "Al foglio n.:", Mask::digits(6)};
  Check anno{*this, "anno", "Con l'an&no davanti al numero"};
  Check azienda{*this, "azienda", "&Intestazione azienda"};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Numeraz::Numeraz(Session& session) : Form(session.desk(), "NUMERAZ", "Numerazione fogli"), session_(session) {
  dal.setText("1");
  azienda.set(true);
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Numeraz::layout() const {
  return column({group("Fogli", {row({testo}), row({dal, al})}),
                 group("Stampa", {row({azienda, anno, anteprima})}), space(), buttons({ok, annulla})});
}

void Numeraz::print() {
  const int first = static_cast<int>(dal.number()), last = static_cast<int>(al.number());
  if (first == 0) return desk().refuse("Il numero di pagina iniziale non può essere zero", dal);
  if (last < first) return desk().refuse("Il numero finale è minore del numero iniziale", al);
  if (last - first >= kMostSheets)
    return desk().refuse("Si possono numerare al massimo " + std::to_string(kMostSheets) + " fogli per volta",
                         al);
  const Letterhead head = letterhead(session_, azienda.on(), 0, 2624);
  auto report = std::make_shared<Report>("Numerazione fogli", fitted(printSetup(session_), kWidth));
  const std::string before = anno.on() ? session_.WorkYear + "/" : std::string();
  Paged out(
      *report, kWidth,
      [&](Paged& sheet, int page) {
        sheet.right("Foglio n. " + before + std::to_string(page));
        writeLetterhead(sheet, head);
        if (!testo.empty()) sheet.centred(testo.text());
      },
      first);
  while (out.page() < last) out.turn();
  showReport(desk(), report, anteprima.on());
}

}  // namespace

std::unique_ptr<Form> makeNumeraz(Session& session) { return std::make_unique<Numeraz>(session); }

}  // namespace tarvex
