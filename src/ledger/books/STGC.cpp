// Stampa giornale di contabilità: the only book with a definitive state of its own, and with pages that are
// numbered through.
#include <algorithm>

#include "common/date.h"
#include "common/text.h"
#include "ledger/books/date_range.h"
#include "ledger/books/forms.h"
#include "ledger/books/general_journal.h"
#include "session/checks.h"
#include "session/printing.h"
#include "store/group.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::string_view kState = "giornale";  // of `pr`: the date printed up to, the last row
constexpr std::string_view kPages = "paggiorn";  // of `pr`: the last page

class Stgc : public Form {
 public:
  explicit Stgc(Session& session);
  Layout layout() const override;
  void load() override { showState(); }

 private:
  rec::pr state(std::string_view name);
  void showState();
  bool mayPrintAgain(const DateRange& range);
  bool mayNumber();
  JournalHeading heading();
  void print();
  void keep(const GeneralJournal& journal);
  void write(std::string_view name, std::string testo, long valore);

  Session& session_;
  DateRangeFields periodo{*this, session_, "text1", "text2"};
  Field numero{*this, "text3", "Numero progr.:", Mask::digits(7)};
  Label ultima{*this, "ultima", "Data ultima stampa:", 10};
  Check definitiva{*this, "Check1", "Stampa &definitiva"};
  Check anteprima{*this, "Check2", "Anteprima di &stampa"};
  Check intestazione{*this, "Check3", "&Intestazione azienda"};
  Check fogli{*this, "Check4", "&Numerazione fogli dal n.:"};
  Field foglio{*this, "text10", "Foglio:", Mask::digits(5)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stgc::Stgc(Session& session)
    : Form(session.desk(), "STGC", "Stampa giornale di contabilità"), session_(session) {
  anteprima.set(true);
  foglio.setEnabled(false);
  fogli.onChange = [this] { foglio.setEnabled(fogli.on()); };
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stgc::layout() const {
  return column({group("Periodo", {periodo.layout(), row({numero}), row({ultima})}),
                 group("Stampa", {row({definitiva, anteprima, intestazione}), row({fogli, foglio})}), space(),
                 buttons({ok, annulla})});
}

// A company on which it was never printed has no record of it.
rec::pr Stgc::state(std::string_view name) {
  if (session_.pr.search(0, name) == store::kOk) return session_.pr.B;
  if (session_.store.LastArchiveResult != store::kNotFound)
    session_.CheckArchiveResult(store::Operation::read, session_.pr.code, 2610);
  return {};
}

void Stgc::showState() {
  const rec::pr printed = state(kState);
  ultima.setText(dateOf(printed.testo));
  numero.setText(std::to_string(printed.valore + 1));
  foglio.setText(std::to_string(state(kPages).valore + 1));
}

// Printing what stands in definitive pages already is asked first.
bool Stgc::mayPrintAgain(const DateRange& range) {
  if (!definitiva.on()) return true;
  const std::string until = state(kState).testo;
  return until.empty() || range.from > until ||
         desk().confirm(
             "Il giornale risulta già stampato in definitiva nel periodo indicato. Proseguire lo stesso con "
             "la stampa ?",
             "Attenzione", true);
}

bool Stgc::mayNumber() {
  if (!fogli.on() || foglio.number() != 0) return true;
  desk().refuse("Il numero di pagina iniziale non può essere zero", foglio);
  return false;
}

JournalHeading Stgc::heading() {
  JournalHeading heading;
  heading.isNumbered = intestazione.on() || fogli.on();
  if (!intestazione.on()) return heading;
  heading.company = session_.CompanyName;
  session_.dataz.search(0, session_.CompanyCode);
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 2611);
  if (session_.store.LastArchiveResult != store::kOk) return heading;
  const rec::dataz& company = session_.dataz.B;
  heading.address = company.indirizzo;
  heading.city = company.citta;
  heading.vatNumber = company.partitaiva;
  return heading;
}

void Stgc::print() {
  const auto range = periodo.read();
  if (!range || !mayPrintAgain(*range) || !mayNumber()) return;
  const JournalPrint asked{.range = *range,
                           .firstRow = std::max(1L, static_cast<long>(numero.number())),
                           .firstPage = fogli.on() ? static_cast<int>(foglio.number()) : 1,
                           .heading = heading()};
  const auto made = layOutJournal(session_, asked, printSetup(session_));
  const bool needsAll = definitiva.on() || !anteprima.on();
  if (needsAll && !layOutWhole(
                      desk(), *made.report, [&] { return made.journal->read(); }, journalRows(session_)))
    return;
  if (needsAll && !made.journal->isWhole()) return;
  if (!showReport(desk(), made.report, anteprima.on()) || !definitiva.on()) return;
  keep(*made.journal);
  showState();
}

void Stgc::keep(const GeneralJournal& journal) {
  store::Group group(session_.store, session_.groupLog(), session_.pr.code, 2612);
  write(kState, common::DateToKey(periodo.to()), journal.lastRow());
  if (fogli.on()) write(kPages, {}, journal.lastPage());
  group.commit();
}

void Stgc::write(std::string_view name, std::string testo, long valore) {
  auto& pr = session_.pr;
  pr.spinLock(name);
  pr.A = {};
  pr.A.testo = std::move(testo);
  pr.A.valore = static_cast<std::int32_t>(valore);
  pr.put(name, store::Put::write);
  session_.CheckArchiveResult(store::Operation::write, pr.code, 2613);
  pr.unlock(name);
}

}  // namespace

std::unique_ptr<Form> makeStgc(Session& session) { return std::make_unique<Stgc>(session); }

}  // namespace tarvex
