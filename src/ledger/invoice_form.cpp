#include "ledger/invoice_form.h"

#include <algorithm>
#include <array>
#include <map>

#include "chart/account_field.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/entry_checks.h"
#include "ledger/entry_dues.h"
#include "ledger/forms.h"
#include "ledger/revision.h"
#include "ledger/vat_rows.h"
#include "session/checks.h"
#include "vat/register.h"
#include "vat/register_state.h"
#include "vat/vat_table.h"

namespace tarvex {
namespace {

using ui::Leave, ui::Mask;

constexpr int kLastNumber = 99'999;  // five digits are what the registers hold

// What the screens of sales, purchases and receipts call things, by VatSide.
struct Words {
  std::string_view subject, noSubject;
  std::string_view registerField;
  std::string_view amount, noAmount;
  std::string_view taken, takenMeanwhile;
  std::string_view newSubject, newSubjectCaption, newSubjectUnit;
};
constexpr std::array<Words, 3> kWords{{
    {"Cliente:", "NON E' STATO INSERITO IL CLIENTE", "Text7",
     "Importo fattura:", "NON E' STATO INSERITO L'IMPORTO DELLA FATTURA", "Fattura già registrata", "",
     "nuovocliente", "&Nuovo cliente", "RCLIENTE"},
    {"Fornitore:", "NON E' STATO INSERITO IL FORNITORE", "Text8",
     "Importo fattura:", "NON E' STATO INSERITO L'IMPORTO DELLA FATTURA", "Protocollo già registrato",
     "Un'altra registrazione è stata nel frattempo effettuata con il numero di protocollo inserito. Si vuole "
     "effettuare la registrazione con il primo numero successivo disponibile ?",
     "nuovofornitore", "&Nuovo fornitore", "RFORN"},
    {"Sottoconto:", "NON E' STATO INSERITO IL CONTO", "Text7",
     "Importo: ", "NON E' STATO INSERITO L'IMPORTO ", "Documento già registrato",
     "Un'altra registrazione è stata nel frattempo effettuata con il numero di documento inserito. Si vuole "
     "effettuare la registrazione con il primo numero successivo disponibile ?",
     "nuovocliente", "&Nuovo cliente", "RCLIENTE"},
}};

class InvoiceForm : public ui::Form {
 public:
  InvoiceForm(Session& session, const InvoiceKind& kind);
  ui::Layout layout() const override;
  void load() override;
  bool mayClose() override { return revision_.mayLeave(); }

 private:
  bool isPurchase() const { return kind_.side == VatSide::purchases; }
  bool isReceipt() const { return kind_.side == VatSide::receipts; }
  int decimals() const { return kind_.lire ? 0 : 2; }
  void setEvents();

  std::map<std::string, std::string> namesToday(const JournalEntry& entry);

  Leave leaveNumber();
  void leaveRegister();
  void proposeProtocol();
  Leave leaveProtocol();
  void warnOfPrintedRegister();
  Leave leaveVoice(ui::Field& field);
  Leave leaveVatCode(int row);
  void extractVat(int row);
  void showBalance();

  void registerDocument();
  Posted post();
  bool mayRegister();
  bool subjectGiven();
  bool numberGiven();
  bool amountGiven();
  bool balances();
  bool rowsComplete();
  bool numberStillFree();
  bool voicesThere();
  bool moveToFreeNumber(bool& agreed);

  ui::Field& numberField() { return protocol_ ? *protocol_ : text2; }
  bool isOwn(std::string_view number) const;
  bool isTaken(std::string_view number) const;
  InvoiceDocument document() const;
  double rowsTotal() const;
  void clear();

  Session& session_;
  const InvoiceKind& kind_;
  const Words& words_;
  Revision revision_;
  std::string subject_;                 // codes, from the checks
  std::array<std::string, 10> voices_;  // of the contropartite, by row from 1
  std::array<bool, 10> deductible_{};   // of the VAT codes, by row from 1
  std::string proposed_;                // the protocol that the field proposed by itself

  ui::Field text1{*this, "text1", "Data reg.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text2{*this, "text2", "N. doc.:", Mask::digits(10)};
  ui::Field text3{*this, "text3", "Data doc.:", Mask::pattern(session_.YearDateMask)};
  ui::Field registro{*this, words_.registerField, "Registro:", Mask::oneOf("123456789")};
  std::unique_ptr<ui::Field> protocol_ =
      isPurchase() ? std::make_unique<ui::Field>(*this, "text7", "Protocollo:", Mask::digits(5)) : nullptr;
  ui::Field text5{*this, "text5", words_.subject, Mask::text(30)};
  ui::Field text4{*this, "text4", "Descrizione:", Mask::text(50)};
  ui::Field text6{*this, "text6", words_.amount, Mask::amount(decimals())};
  ui::Grid righe{*this, "righe", 9};
  ui::GridColumn controp{righe, "controp", "Contropartita", Mask::text(30)};
  ui::GridColumn imponibile{righe, "imponibile", "Imponibile", Mask::amount(decimals())};
  ui::GridColumn codiva{righe, "codiva", "Codice iva", Mask::text(5)};
  ui::GridColumn importoiva{righe, "importoiva", "Importo iva", Mask::amount(decimals())};
  ui::Label totale{*this, "totale", "Totale righe:", 15};
  ui::Label differenza{*this, "differenza", "Differenza:", 15};
  ui::Button registra{*this, "registra", "&Registra", ui::Button::Role::main};
  ui::Button nuovo{*this, words_.newSubject, words_.newSubjectCaption};
  ui::Button nuovoSottoconto{*this, "nuovosottoconto", "Nuovo &sottoconto"};
  ui::Button annulla{*this, "annulla", "&Annulla", ui::Button::Role::cancel};
};

InvoiceForm::InvoiceForm(Session& session, const InvoiceKind& kind)
    : Form(session.desk(), kind.unit, kind.title),
      session_(session),
      kind_(kind),
      words_(kWords[static_cast<std::size_t>(kind.side)]),
      revision_(session, kind.revision) {
  registro.setText("1");
  nuovo.setEnabled(session.knows(words_.newSubjectUnit));
  nuovoSottoconto.setEnabled(session.knows("RPC"));
  setEvents();
}

void InvoiceForm::setEvents() {
  checkRegistrationDate(session_, text1);
  text2.onLeave = [this] { return leaveNumber(); };
  checkDate(session_, text3);
  registro.onLeave = [this] { return leaveRegister(), Leave::go; };
  if (protocol_) {
    protocol_->onEnter = [this] { proposeProtocol(); };
    protocol_->onLeave = [this] { return leaveProtocol(); };
  }
  if (isPurchase())
    accountField(session_, text5, {"f", "ag"}, SearchList::suppliers);
  else if (isReceipt())
    accountField(session_, text5, {"s", "c"}, SearchList::sottoconti);
  else
    accountField(session_, text5, {"c"}, SearchList::customers);
  text6.onLeave = [this] { return showBalance(), Leave::go; };
  controp.onEach([this](ui::Field& cell, int) {
    accountField(session_, cell, {"s"}, SearchList::sottoconti);
    cell.onLeave = [this, &cell] { return leaveVoice(cell); };
  });
  const auto balanceOnLeave = [this](ui::Field& cell, int) {
    cell.onLeave = [this] { return showBalance(), Leave::go; };
  };
  imponibile.onEach(balanceOnLeave);
  importoiva.onEach(balanceOnLeave);
  codiva.onEach(
      [this](ui::Field& cell, int row) { cell.onLeave = [this, row] { return leaveVatCode(row); }; });
  if (isReceipt())
    importoiva.onEach([this](ui::Field& cell, int row) {
      cell.hint = "F6 scorporo iva";
      cell.on(ui::Key::F6, [this, row] { extractVat(row); });
    });
  registra.onPress = [this] { registerDocument(); };
  nuovo.onPress = [this] { session_.open(words_.newSubjectUnit); };
  nuovoSottoconto.onPress = [this] { session_.open("RPC"); };
  annulla.onPress = [this] {
    if (mayClose()) close();
  };
}

ui::Layout InvoiceForm::layout() const {
  ui::Layout numbers = ui::row({text1, text2, text3, registro});
  if (protocol_) numbers.parts.emplace_back(*protocol_);
  return ui::column({ui::group("Documento", {numbers, ui::row({text5}), ui::row({text4}), ui::row({text6})}),
                     ui::group("Contropartite e IVA", {righe}), ui::row({totale, differenza}),
                     ui::buttons({registra, nuovo, nuovoSottoconto, annulla})});
}

// --- the entry that is revised ---

void InvoiceForm::load() {
  if (!revision_.entry()) return;
  const JournalEntry& entry = *revision_.entry();
  const rec::mc& first = entry.lines.front();
  text1.setText(screenDate(first.datareg));
  text2.setText(plainNumber(isPurchase() ? supplierNumber(session_, first) : first.numdoc));
  text3.setText(screenDate(first.datadoc));
  registro.setText(first.registro);
  if (protocol_) protocol_->setText(first.protocollo);
  text5.setText(voiceName(session_, first.conto));
  text4.setText(first.descrizione);
  text6.setNumber(first.dare != 0 ? first.dare : first.avere);
  const int rows = std::min(righe.rows(), static_cast<int>(entry.rows.size()));
  const auto names = namesToday(entry);
  for (int row = 1; row <= rows; ++row) {
    const rec::tt& typed = entry.rows[static_cast<std::size_t>(row - 1)];
    const auto name = names.find(typed.voce);
    controp[row].setText(name == names.end() ? typed.voce : name->second);
    imponibile[row].setText(typed.testo);
    codiva[row].setText(typed.codice);
    importoiva[row].setText(typed.importo);
  }
  showBalance();
}

// What the contropartite are called today, by the names that were typed: a voice may have been renamed since,
// and its name given to another. Their lines stand behind the first, in the order of their first rows; a sum
// of 0 has none.
std::map<std::string, std::string> InvoiceForm::namesToday(const JournalEntry& entry) {
  std::map<std::string, std::string> names;
  std::size_t line = 1;
  for (const rec::tt& row : entry.rows) {
    if (names.contains(row.voce)) continue;
    double sum = 0;
    for (const rec::tt& other : entry.rows)
      if (other.voce == row.voce) sum += common::toNumber(other.testo);
    if (common::roundBalance(sum) == 0 || line >= entry.lines.size()) continue;
    names[row.voce] = voiceName(session_, entry.lines[line++].conto);
  }
  return names;
}

// --- on leaving the fields ---

Leave InvoiceForm::leaveNumber() {
  if (isPurchase() || text2.empty() || !isTaken(text2.text())) return Leave::go;
  session_.desk().refuse(std::string(words_.taken));
  return Leave::stay;
}

void InvoiceForm::leaveRegister() {
  if (registro.empty()) registro.setText("1");
  if (protocol_ && !protocol_->empty()) proposeProtocol();
}

// What the user has typed stays; what was proposed before follows the register.
void InvoiceForm::proposeProtocol() {
  if (!protocol_->empty() && protocol_->text() != proposed_) return;
  auto& pr = session_.pr;
  pr.B = {};
  pr.search(0, "prot" + registro.text());
  session_.CheckArchiveResult(store::Operation::read, pr.code, 1570);
  proposed_ = pr.B.valore < kLastNumber ? common::zeroFill(pr.B.valore + 1, 5) : std::string();
  protocol_->setText(proposed_);
  protocol_->selectAll();
}

Leave InvoiceForm::leaveProtocol() {
  if (!protocol_->empty() && isTaken(protocol_->text())) {
    session_.desk().refuse(std::string(words_.taken));
    return Leave::stay;
  }
  warnOfPrintedRegister();
  return Leave::go;
}

void InvoiceForm::warnOfPrintedRegister() {
  const int printed = printedMonth(session_, kPurchaseRegister, registro.text());
  if (printed == 0 || text1.empty() || common::toNumber(text1.text().substr(3, 2)) > printed) return;
  session_.desk().show({"Il registro iva acquisti è stato stampato al mese di " +
                            session_.MonthNames[static_cast<std::size_t>(printed)],
                        "ATTENZIONE", ui::Ask::ok, ui::Icon::warning});
}

Leave InvoiceForm::leaveVoice(ui::Field& field) {
  if (field.empty()) return Leave::go;
  if (readVoice(session_, field.text(), 1520)) {
    const std::string& tipo = session_.pc.B.tipo;
    if ((tipo == "s" || tipo == "c") && !isVatVoice(session_.pc.primaryKey())) return Leave::go;
  }
  session_.desk().beep();
  return Leave::stay;
}

Leave InvoiceForm::leaveVatCode(int row) {
  if (codiva[row].empty()) return Leave::go;
  const auto code = readVatCode(session_, codiva[row].text());
  if (!code) {
    session_.desk().beep();
    return Leave::stay;
  }
  if (code->aliquota != 0) {
    const double vat = common::vatOf(imponibile[row].number(), code->aliquota);
    if (vat > 0) importoiva[row].setNumber(vat, decimals());
  } else if (code->indetraibile == 0) {
    importoiva[row].clear();
    session_.desk().show({code->descrizione, "CODICE IVA", ui::Ask::ok, ui::Icon::information});
  }
  showBalance();
  return Leave::go;
}

// The row's taxable amount holds the gross one: it is parted into net and VAT.
void InvoiceForm::extractVat(int row) {
  if (codiva[row].empty()) return;
  const auto code = readVatCode(session_, codiva[row].text());
  if (!code) return;
  const double net = common::netOf(imponibile[row].number(), code->aliquota);
  imponibile[row].setNumber(net);
  importoiva[row].setNumber(common::roundBalance(common::snapped(net * code->aliquota / 100)));
  showBalance();
}

void InvoiceForm::showBalance() {
  const double total = rowsTotal();
  totale.setNumber(total, decimals());
  differenza.setNumber(common::roundBalance(text6.number() - total), decimals());
}

// --- the checks, in their order ---

bool InvoiceForm::mayRegister() {
  if (!datesInOrder(session_, text1, text3)) return false;
  if (isReceipt() ? !numberGiven() || !subjectGiven() : !subjectGiven() || !numberGiven()) return false;
  return amountGiven() && balances() && rowsComplete() && numberStillFree() && voicesThere();
}

bool InvoiceForm::subjectGiven() {
  if (text5.empty()) return refuse(text5, words_.noSubject);
  if (readVoice(session_, text5.text(), 1521)) {
    const std::string& tipo = session_.pc.B.tipo;
    const bool right = isPurchase()  ? tipo == "f" || tipo == "ag"
                       : isReceipt() ? tipo == "s" || tipo == "c"
                                     : tipo == "c";
    subject_ = session_.pc.primaryKey();
    if (right && !isVatVoice(subject_)) return true;
  }
  session_.desk().beep();
  text5.focus();
  return false;
}

bool InvoiceForm::numberGiven() {
  if (numberField().number() == 0)
    return refuse(numberField(), isPurchase() ? "NON E' STATO INSERITO IL NUMERO DI PROTOCOLLO"
                                              : "NON E' STATO INSERITO IL NUMERO DEL DOCUMENTO");
  if (isPurchase()) return true;
  // Of sales by the number alone: it is unique across the registers on this screen.
  const bool taken = isReceipt()
                         ? isTaken(text2.text())
                         : !isOwn(text2.text()) && isSalesNumberTaken(session_, registerNumber(text2.text()),
                                                                      revision_.document());
  return !taken || refuse(text2, words_.taken);
}

bool InvoiceForm::amountGiven() { return text6.number() != 0 || refuse(text6, words_.noAmount); }

bool InvoiceForm::balances() {
  if (tarvex::balances(desk(), imbalance(document()), "#0.00")) return true;
  text6.focus();
  return false;
}

bool InvoiceForm::rowsComplete() {
  for (int row = 1; row <= righe.rows(); ++row) {
    const bool voice = !controp[row].empty(), code = !codiva[row].empty();
    const bool base = imponibile[row].number() != 0, vat = importoiva[row].number() != 0;
    if (voice && !base)
      return refuse(imponibile[row], "E' STATA INSERITA LA CONTROPARTITA MA NON L'IMPONIBILE");
    if (base && !voice)
      return refuse(controp[row], "E' STATO INSERITO L'IMPONIBILE MA NON LA CONTROPARTITA ");
    if (base && !code) return refuse(codiva[row], "E' STATO INSERITO L'IMPONIBILE MA NON IL CODICE IVA");
    if (vat && !voice)
      return refuse(controp[row], "E' STATO INSERITO UN IMPORTO IVA MA NON LA CONTROPARTITA");
    if (vat && !code) return refuse(codiva[row], "E' STATO INSERITO UN IMPORTO IVA MA NON IL CODICE IVA");
  }
  return true;
}

// Asked again right before the lock: another station may have taken the number while the rows were typed.
// Purchases and receipts ask under the lock, where they offer the next number.
bool InvoiceForm::numberStillFree() {
  return kind_.side != VatSide::sales || !isTaken(text2.text()) || refuse(text2, words_.taken);
}

// Also finds the codes of the contropartite. Another station may have removed a voice or a VAT code since its
// field was left, or since the entry that is revised was posted.
bool InvoiceForm::voicesThere() {
  for (int row = 1; row <= righe.rows(); ++row) {
    voices_[row].clear();
    deductible_[row] = true;
    if (controp[row].empty()) continue;
    if (leaveVoice(controp[row]) == Leave::stay) return controp[row].focus(), false;
    voices_[row] = session_.pc.primaryKey();
    const auto code = readVatCode(session_, codiva[row].text());
    if (!code) return desk().beep(), codiva[row].focus(), false;
    deductible_[row] = code->indetraibile == 0;
  }
  return true;
}

// --- the posting ---

void InvoiceForm::registerDocument() {
  if (!mayRegister()) return;
  Posted result = post();
  for (bool agreed = false; result == Posted::taken; result = post())
    if (!moveToFreeNumber(agreed)) return;
  if (!revision_.goesOn(result, *this)) return;
  clear();
  text1.focus();
}

Posted InvoiceForm::post() {
  InvoiceDocument posted = document();
  if (kind_.lire) convertFromLire(posted, session_.EuroRate);
  const DueDates dues = fallingDue(session_, kind_, posted);
  const Posted result =
      postEntry(session_, invoiceEntry(kind_, posted), {.replaces = revision_.nummov(), .dues = dues});
  if (result == Posted::done) tellMissingCondition(session_, dues);
  return result;
}

// The number was taken meanwhile: on a yes the field gets the next free one of its register.
bool InvoiceForm::moveToFreeNumber(bool& agreed) {
  if (kind_.side == VatSide::sales) return refuse(text2, words_.taken);
  ui::Field& field = numberField();
  agreed = agreed || session_.desk().confirm(std::string(words_.takenMeanwhile), std::string(kProduct));
  if (!agreed) return field.focus(), false;
  auto number = static_cast<long long>(field.number());
  for (int tries = 0; tries < kLastNumber; ++tries) {
    ++number;
    if (isPurchase() && number > kLastNumber) break;
    if (isTaken(std::to_string(number))) continue;
    field.setText(isPurchase() ? common::zeroFill(number, 5) : std::to_string(number));
    return true;
  }
  return refuse(field, words_.taken);
}

// The entry's own number is free for it, whatever else was put under it in the register.
bool InvoiceForm::isOwn(std::string_view number) const {
  const auto document = revision_.document();
  return document && document->chiavereg == registro.text() + registerNumber(number);
}

bool InvoiceForm::isTaken(std::string_view number) const {
  return !isOwn(number) && isNumberTaken(session_, kind_.side, registro.text() + registerNumber(number),
                                         revision_.document());
}

InvoiceDocument InvoiceForm::document() const {
  InvoiceDocument document;
  document.datareg = text1.text();
  document.datadoc = text3.text();
  document.numero = text2.text();
  if (protocol_) document.protocollo = protocol_->text();
  document.registro = registro.text();
  document.conto = subject_;
  document.descrizione = text4.text();
  document.importo = text6.number();
  for (int row = 1; row <= righe.rows(); ++row) {
    InvoiceRow one;
    one.contropartita = voices_[row];
    one.imponibile = imponibile[row].number();
    one.codiva = codiva[row].text();
    one.imposta = importoiva[row].number();
    one.deductible = deductible_[row];
    one.typed = {controp[row].text(), imponibile[row].text(), codiva[row].text(), importoiva[row].text()};
    document.rows.push_back(std::move(one));
  }
  return document;
}

double InvoiceForm::rowsTotal() const {
  double total = 0;
  for (int row = 1; row <= righe.rows(); ++row) total += imponibile[row].number() + importoiva[row].number();
  return total;
}

void InvoiceForm::clear() {
  for (ui::Control* control : controls())
    if (auto* field = dynamic_cast<ui::Field*>(control)) field->clear();
  registro.setText("1");
  proposed_.clear();
  showBalance();
}

}  // namespace

std::unique_ptr<ui::Form> makeInvoiceForm(Session& session, const InvoiceKind& kind) {
  return std::make_unique<InvoiceForm>(session, kind);
}

}  // namespace tarvex
