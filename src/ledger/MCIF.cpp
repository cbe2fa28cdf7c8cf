// Registrazione incasso fattura and pagamento fattura, their advances and their revisions: one screen.
#include "chart/account_field.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/collections.h"
#include "ledger/entry_checks.h"
#include "ledger/entry_dues.h"
#include "ledger/forms.h"
#include "ledger/revision.h"
#include "ledger/scadenzario.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using ui::Leave, ui::Mask;

constexpr int kRows = 10;

// The words that tell collections and payments apart.
struct Words {
  std::string_view subject, noSubject, amount, noAmount;
};
constexpr Words kCollection{"Cliente:", "NON E' STATO INSERITO IL CLIENTE",
                            "Importo incassato:", "NON E' STATO INSERITO L'IMPORTO INCASSATO"};
constexpr Words kPayment{"Fornitore:", "NON E' STATO INSERITO IL FORNITORE",
                         "Importo pagato:", "NON E' STATO INSERITO L'IMPORTO PAGATO"};

class CollectionForm : public ui::Form {
 public:
  CollectionForm(Session& session, const CollectionKind& kind);
  ui::Layout layout() const override;
  void load() override;
  bool mayClose() override { return revision_.mayLeave(); }

 private:
  void setEvents();
  void chooseOpen();
  void showDifference();

  void registerCollection();
  bool mayRegister();
  bool subjectGiven();
  bool amountGiven();
  bool contropartitaGiven();
  bool rowsComplete();
  bool balances();
  bool voicesThere();

  Collection collection() const;
  void showRow(int row, const CollectionRow& shown);
  void clear();

  Session& session_;
  const CollectionKind& kind_;
  const Words& words_;
  Revision revision_;
  std::string subject_, contropartita_;  // codes, from the checks
  double proposed_ = 0;                  // the amount that the form has filled in by itself
  ui::Field text1{*this, "text1", "Data reg.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text2{*this, "text2", "N. doc.:", Mask::digits(10)};
  ui::Field text3{*this, "text3", "Data doc.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text4{*this, "text4", "Descrizione:", Mask::text(50)};
  ui::Field text5{*this, "text5", words_.subject, Mask::text(30)};
  ui::Field text6{*this, "text6", words_.amount, Mask::amount()};
  ui::Field text7{*this, "text7", "Contropartita:", Mask::text(30)};
  std::unique_ptr<ui::Grid> righe_ =
      kind_.advance ? nullptr : std::make_unique<ui::Grid>(*this, "righe", kRows);
  std::unique_ptr<ui::GridColumn> nfatt_ = column("nfatt", "N. fattura", Mask::digits(10));
  std::unique_ptr<ui::GridColumn> dfatt_ = column("dfatt", "Data fattura", Mask::pattern("__/__/____"));
  std::unique_ptr<ui::GridColumn> dscad_ = column("dscad", "Scadenza", Mask::pattern("__/__/____"));
  std::unique_ptr<ui::GridColumn> impfatt_ = column("impfatt", "Importo", Mask::amount());
  std::unique_ptr<ui::GridColumn> abbuono_ = column("abbuono", "Abbuono", Mask::amount());
  ui::Label differenza{*this, "differenza", "Differenza:", 15};
  ui::Button registra{*this, "registra", "&Registra", ui::Button::Role::main};
  ui::Button scadenzario{*this, "scadenzario", "&Scadenzario"};
  ui::Button annulla{*this, "annulla", "&Annulla", ui::Button::Role::cancel};

  std::unique_ptr<ui::GridColumn> column(std::string_view name, std::string_view caption, const Mask& mask) {
    return righe_ ? std::make_unique<ui::GridColumn>(*righe_, name, caption, mask) : nullptr;
  }
};

CollectionForm::CollectionForm(Session& session, const CollectionKind& kind)
    : Form(session.desk(), kind.unit, kind.title),
      session_(session),
      kind_(kind),
      words_(kind.payment ? kPayment : kCollection),
      revision_(session, kind.revision) {
  differenza.setVisible(!kind.advance);
  scadenzario.setVisible(!kind.advance);
  setEvents();
}

void CollectionForm::setEvents() {
  checkRegistrationDate(session_, text1);
  checkDate(session_, text3);
  if (kind_.payment)
    accountField(session_, text5, {"f", "ag"}, SearchList::suppliers);
  else
    accountField(session_, text5, {"c"}, SearchList::customers);
  accountField(session_, text7, {"s", "c", "f", "ag"}, SearchList::postable);
  text6.onLeave = [this] { return showDifference(), Leave::go; };
  if (righe_) {
    for (ui::GridColumn* dates : {dfatt_.get(), dscad_.get()})
      dates->onEach([this](ui::Field& cell, int) { checkDate(session_, cell); });
    impfatt_->onEach(
        [this](ui::Field& cell, int) { cell.onLeave = [this] { return showDifference(), Leave::go; }; });
  }
  registra.onPress = [this] { registerCollection(); };
  scadenzario.onPress = [this] { chooseOpen(); };
  annulla.onPress = [this] {
    if (mayClose()) close();
  };
}

ui::Layout CollectionForm::layout() const {
  const ui::Layout head = ui::group(
      "Documento", {ui::row({text1, text2, text3}), ui::row({text4, text5}), ui::row({text6, text7})});
  const ui::Layout below = ui::row({differenza}), keys = ui::buttons({registra, scadenzario, annulla});
  if (!righe_) return ui::column({head, ui::space(), below, keys});
  return ui::column({head, ui::group("Fatture", {*righe_}), below, keys});
}

// --- the entry that is revised ---

void CollectionForm::load() {
  if (!revision_.entry()) return;
  const JournalEntry& entry = *revision_.entry();
  const rec::mc& first = entry.lines.front();
  text1.setText(screenDate(first.datareg));
  text2.setText(plainNumber(first.numdoc));
  text3.setText(screenDate(first.datadoc));
  text4.setText(first.descrizione);
  text7.setText(voiceName(session_, first.conto));
  text6.setNumber(kind_.payment ? first.avere - first.dare : first.dare - first.avere);
  if (entry.lines.size() > 1) text5.setText(voiceName(session_, entry.lines[1].conto));
  int row = 0;
  for (const CollectionRow& typed : typedRows(entry.rows))
    if (row < kRows) showRow(++row, typed);
  showDifference();
}

void CollectionForm::showRow(int row, const CollectionRow& shown) {
  const auto set = [row](ui::GridColumn& column, double amount) {
    if (amount == 0)
      column[row].clear();
    else
      column[row].setNumber(amount);
  };
  (*nfatt_)[row].setText(shown.numero);
  (*dfatt_)[row].setText(shown.datafatt);
  (*dscad_)[row].setText(shown.scadenza);
  set(*impfatt_, shown.importo);
  set(*abbuono_, shown.abbuono);
}

// --- on leaving the fields ---

void CollectionForm::showDifference() {
  if (righe_) differenza.setNumber(imbalance(collection()));
}

// The instalments chosen fill the rows that are free. What all rows come to is proposed as the amount, until
// the user types another.
void CollectionForm::chooseOpen() {
  if (!subjectGiven()) return;
  const auto chosen =
      chooseInstalments(session_, closedLedger(kind_.causale()), subject_, collection().rows);
  int row = 0;
  for (const DueDate& due : chosen) {
    do ++row;
    while (row <= kRows && (!(*nfatt_)[row].empty() || (*impfatt_)[row].number() != 0));
    if (row > kRows) {
      desk().beep();
      break;
    }
    showRow(row, {plainNumber(due.numero), screenDate(due.datafatt), screenDate(due.scadenza), due.importo});
  }
  const bool own = text6.number() == 0 || text6.number() == proposed_;
  if (own) text6.setNumber(proposed_ = sumOfRows(collection()));
  showDifference();
}

// --- the checks, in their order ---

bool CollectionForm::mayRegister() {
  return datesInOrder(session_, text1, text3) && subjectGiven() && amountGiven() && contropartitaGiven() &&
         rowsComplete() && balances() && voicesThere();
}

bool CollectionForm::subjectGiven() {
  if (text5.empty()) return refuse(text5, words_.noSubject);
  if (readVoice(session_, text5.text(), 2400)) {
    const std::string& tipo = session_.pc.B.tipo;
    subject_ = session_.pc.primaryKey();
    if (kind_.payment ? tipo == "f" || tipo == "ag" : tipo == "c") return true;
  }
  desk().beep();
  text5.focus();
  return false;
}

bool CollectionForm::amountGiven() { return text6.number() != 0 || refuse(text6, words_.noAmount); }

bool CollectionForm::contropartitaGiven() {
  return !text7.empty() || refuse(text7, "NON E' STATA INSERITA LA CONTROPARTITA");
}

bool CollectionForm::rowsComplete() {
  for (int row = 1; righe_ && row <= kRows; ++row)
    if ((*abbuono_)[row].number() != 0 && (*impfatt_)[row].number() == 0)
      return refuse((*impfatt_)[row], "E' STATO INSERITO UN ABBUONO MA NON L'IMPORTO");
  return true;
}

bool CollectionForm::balances() {
  if (tarvex::balances(desk(), imbalance(collection()), "#0.00")) return true;
  text6.focus();
  return false;
}

// Also finds the code of the contropartita.
bool CollectionForm::voicesThere() {
  if (readVoice(session_, text7.text(), 2401)) {
    const std::string& tipo = session_.pc.B.tipo;
    contropartita_ = session_.pc.primaryKey();
    if (tipo != "m" && tipo != "cc") return true;
  }
  desk().beep();
  text7.focus();
  return false;
}

// --- the posting ---

void CollectionForm::registerCollection() {
  if (!mayRegister()) return;
  const Collection one = collection();
  const Posted result =
      postEntry(session_, collectionEntry(kind_, one),
                {.replaces = revision_.nummov(), .also = [&] { closeInstalments(session_, kind_, one); }});
  if (!revision_.goesOn(result, *this)) return;
  clear();
  text1.focus();
}

// An advance is one row without an invoice.
Collection CollectionForm::collection() const {
  Collection one{text1.text(), text3.text(),   text2.text(),   text4.text(),
                 subject_,     contropartita_, text6.number(), {}};
  if (kind_.advance) one.rows = {{"", "", "", one.importo, 0}};
  for (int row = 1; righe_ && row <= kRows; ++row) {
    const auto date = [row](const ui::GridColumn& column) {
      return column[row].empty() ? std::string() : column[row].text();
    };
    one.rows.push_back({(*nfatt_)[row].text(), date(*dfatt_), date(*dscad_), (*impfatt_)[row].number(),
                        (*abbuono_)[row].number()});
  }
  return one;
}

void CollectionForm::clear() {
  for (ui::Control* control : controls())
    if (auto* field = dynamic_cast<ui::Field*>(control)) field->clear();
  proposed_ = 0;
  showDifference();
}

constexpr CollectionKind kMcif{"MCIF", "Registrazione incasso fattura"};
constexpr CollectionKind kMcif2{"MCIF2", "Revisione incasso fattura", false, false, true};
constexpr CollectionKind kMcpf{"MCPF", "Registrazione pagamento fattura", true};
constexpr CollectionKind kMcpf2{"MCPF2", "Revisione pagamento fattura", true, false, true};
constexpr CollectionKind kMcifac{"MCIFAC", "Registrazione incasso acconto", false, true};
constexpr CollectionKind kMcpfac{"MCPFAC", "Registrazione pagamento acconto", true, true};

std::unique_ptr<ui::Form> make(Session& session, const CollectionKind& kind) {
  return std::make_unique<CollectionForm>(session, kind);
}

}  // namespace

std::unique_ptr<ui::Form> makeMcif(Session& session) { return make(session, kMcif); }
std::unique_ptr<ui::Form> makeMcif2(Session& session) { return make(session, kMcif2); }
std::unique_ptr<ui::Form> makeMcpf(Session& session) { return make(session, kMcpf); }
std::unique_ptr<ui::Form> makeMcpf2(Session& session) { return make(session, kMcpf2); }
std::unique_ptr<ui::Form> makeMcifac(Session& session) { return make(session, kMcifac); }
std::unique_ptr<ui::Form> makeMcpfac(Session& session) { return make(session, kMcpfac); }

}  // namespace tarvex
