// Registrazione fattura vendita.
#include <array>
#include <set>

#include "chart/account_field.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/forms.h"
#include "ledger/posting.h"
#include "session/checks.h"
#include "ui/form.h"
#include "vat/vat_table.h"

namespace {

using namespace tarvex;
using ui::Leave, ui::Mask;

constexpr std::string_view kVatOnSales = "00012";

class Mcfv : public ui::Form {
 public:
  explicit Mcfv(Session& session);
  ui::Layout layout() const override;

 private:
  Leave leaveDate();
  Leave leaveNumber();
  Leave leaveDocumentDate();
  Leave leaveVoice(ui::Field& field);
  Leave leaveVatCode(int row);
  void showBalance();

  void registerInvoice();
  bool datesInOrder();
  bool customerGiven();
  bool numberGivenAndFree();
  bool balances();
  bool rowsComplete();
  bool numberStillFree();
  bool voicesThere();
  bool refuse(ui::Field& field, const char* text);

  bool numberTaken();
  double rowsTotal() const;
  std::string lastDigits(std::size_t digits) const;
  Entry entry() const;
  void addContropartite(Entry& entry) const;
  rec::iv vatRow(int row) const;
  void clear();

  Session& session_;
  std::string customer_;                // codes, from the checks
  std::array<std::string, 10> voices_;  // of the contropartite, by row from 1

  ui::Field text1{*this, "text1", "Data reg.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text2{*this, "text2", "N. doc.:", Mask::digits(10)};
  ui::Field text3{*this, "text3", "Data doc.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text7{*this, "Text7", "Registro:", Mask::oneOf("123456789")};
  ui::Field text5{*this, "text5", "Cliente:", Mask::text(30)};
  ui::Field text4{*this, "text4", "Descrizione:", Mask::text(50)};
  ui::Field text6{*this, "text6", "Importo fattura:", Mask::amount()};
  ui::Grid righe{*this, "righe", 9};
  ui::GridColumn controp{righe, "controp", "Contropartita", Mask::text(30)};
  ui::GridColumn imponibile{righe, "imponibile", "Imponibile", Mask::amount()};
  ui::GridColumn codiva{righe, "codiva", "Codice iva", Mask::text(5)};
  ui::GridColumn importoiva{righe, "importoiva", "Importo iva", Mask::amount()};
  ui::Label totale{*this, "totale", "Totale righe:", 15};
  ui::Label differenza{*this, "differenza", "Differenza:", 15};
  ui::Button registra{*this, "registra", "&Registra", ui::Button::Role::main};
  ui::Button nuovoCliente{*this, "nuovocliente", "&Nuovo cliente"};
  ui::Button nuovoSottoconto{*this, "nuovosottoconto", "Nuovo &sottoconto"};
  ui::Button annulla{*this, "annulla", "&Annulla", ui::Button::Role::cancel};
};

Mcfv::Mcfv(Session& session)
    : Form(session.desk(), "mcfv", "Registrazione fattura vendita"), session_(session) {
  text7.setText("1");
  text1.onLeave = [this] { return leaveDate(); };
  text2.onLeave = [this] { return leaveNumber(); };
  text3.onLeave = [this] { return leaveDocumentDate(); };
  text7.onLeave = [this] { return text7.empty() ? (text7.setText("1"), Leave::go) : Leave::go; };
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
  registra.onPress = [this] { registerInvoice(); };
  nuovoCliente.onPress = [this] { session_.open("RCLIENTE"); };
  nuovoSottoconto.onPress = [this] { session_.open("RPC"); };
  annulla.onPress = [this] { close(); };
}

ui::Layout Mcfv::layout() const {
  return ui::column({ui::group("Documento", {ui::row({text1, text2, text3, text7}), ui::row({text5}),
                                             ui::row({text4}), ui::row({text6})}),
                     ui::group("Contropartite e IVA", {righe}), ui::row({totale, differenza}),
                     ui::buttons({registra, nuovoCliente, nuovoSottoconto, annulla})});
}

// --- on leaving the fields ---

Leave Mcfv::leaveDate() {
  std::string date = text1.text();
  return validateRegistrationDate(session_, date) ? Leave::go : Leave::stay;
}

Leave Mcfv::leaveNumber() {
  if (text2.empty() || !numberTaken()) return Leave::go;
  session_.desk().refuse("Fattura già registrata");
  return Leave::stay;
}

Leave Mcfv::leaveDocumentDate() {
  if (text3.empty()) return Leave::go;
  std::string date = text3.text();
  return ValidateDate(session_, date) ? Leave::go : Leave::stay;
}

Leave Mcfv::leaveVoice(ui::Field& field) {
  if (field.empty()) return Leave::go;
  if (readVoice(session_, field.text(), 1520)) {
    const std::string& tipo = session_.pc.B.tipo;
    if (tipo == "s" || tipo == "c") return Leave::go;
  }
  session_.desk().beep();
  return Leave::stay;
}

Leave Mcfv::leaveVatCode(int row) {
  if (codiva[row].empty()) return Leave::go;
  const auto code = readVatCode(session_, codiva[row].text());
  if (!code) {
    session_.desk().beep();
    return Leave::stay;
  }
  if (code->indetraibile == 0 && code->aliquota == 0) {
    importoiva[row].clear();
    session_.desk().show({code->descrizione, "CODICE IVA", ui::Ask::ok, ui::Icon::information});
  } else if (code->indetraibile == 0) {
    const double vat = common::vatOf(imponibile[row].number(), code->aliquota);
    if (vat > 0) importoiva[row].setNumber(vat);
  }
  showBalance();
  return Leave::go;
}

void Mcfv::showBalance() {
  const double total = rowsTotal();
  totale.setText(common::toText(total));
  differenza.setText(common::toText(common::roundBalance(text6.number() - total)));
}

// --- the checks, in their order ---

bool Mcfv::refuse(ui::Field& field, const char* text) {
  session_.desk().refuse(text, field);
  return false;
}

bool Mcfv::datesInOrder() {
  if (text3.empty()) text3.setText(text1.text());
  if (common::DateToKey(text3.text()) <= common::DateToKey(text1.text())) return true;
  return refuse(text1, "La data di registrazione è precedente alla data del documento");
}

bool Mcfv::customerGiven() {
  if (text5.empty()) return refuse(text5, "NON E' STATO INSERITO IL CLIENTE");
  if (readVoice(session_, text5.text(), 1521) && session_.pc.B.tipo == "c") {
    customer_ = session_.pc.primaryKey();
    return true;
  }
  session_.desk().beep();
  text5.focus();
  return false;
}

bool Mcfv::numberGivenAndFree() {
  if (text2.number() == 0) return refuse(text2, "NON E' STATO INSERITO IL NUMERO DEL DOCUMENTO");
  // By the number alone: it is unique across the registers on this screen.
  OpenArchive<rec::iv> iv(session_, 1522, 1523);
  if (iv->search(2, lastDigits(5)) != store::kOk) return true;
  return refuse(text2, "Fattura già registrata");
}

bool Mcfv::balances() {
  if (text6.number() == 0) return refuse(text6, "NON E' STATO INSERITO L'IMPORTO DELLA FATTURA");
  const double difference = common::roundBalance(text6.number() - rowsTotal());
  if (difference == 0) return true;
  session_.desk().beep();
  session_.desk().show({common::format("#0.00", difference), "SBILANCIO", ui::Ask::ok, ui::Icon::warning});
  text6.focus();
  return false;
}

bool Mcfv::rowsComplete() {
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
bool Mcfv::numberStillFree() { return !numberTaken() || refuse(text2, "Fattura già registrata"); }

// Also finds the codes of the contropartite: another station may have removed one since its field was left.
bool Mcfv::voicesThere() {
  for (int row = 1; row <= righe.rows(); ++row) {
    voices_[row].clear();
    if (controp[row].empty()) continue;
    if (leaveVoice(controp[row]) == Leave::stay) return controp[row].focus(), false;
    voices_[row] = session_.pc.primaryKey();
  }
  return true;
}

// --- the posting ---

void Mcfv::registerInvoice() {
  if (!datesInOrder() || !customerGiven() || !numberGivenAndFree() || !balances() || !rowsComplete() ||
      !numberStillFree() || !voicesThere())
    return;
  if (!postEntry(session_, entry())) return;
  clear();
  text1.focus();
}

Entry Mcfv::entry() const {
  Entry entry;
  entry.head = {"fv", text1.text(), text3.text(), lastDigits(6), "", text7.text(), 0};
  entry.lines.push_back({customer_, text6.number(), 0, text4.text()});
  addContropartite(entry);
  double vat = 0;
  for (int row = 1; row <= righe.rows(); ++row) vat += importoiva[row].number();
  addGroupedLine(entry, kVatOnSales, vat, true, text4.text());
  for (int row = 1; row <= righe.rows(); ++row) {
    const double base = imponibile[row].number(), tax = importoiva[row].number();
    if (base != 0 || tax != 0) entry.sales.push_back(vatRow(row));
    if (!voices_[row].empty())
      entry.rows.push_back(
          {controp[row].text(), imponibile[row].text(), codiva[row].text(), importoiva[row].text()});
  }
  return entry;
}

// One line for each contropartita, in the order of its first row, with the sum of all its rows.
void Mcfv::addContropartite(Entry& entry) const {
  std::set<std::string_view> done;
  for (int row = 1; row <= righe.rows(); ++row) {
    if (voices_[row].empty() || !done.insert(voices_[row]).second) continue;
    double sum = 0;
    for (int other = row; other <= righe.rows(); ++other)
      if (voices_[other] == voices_[row]) sum += imponibile[other].number();
    addGroupedLine(entry, voices_[row], sum, true, text4.text());
  }
}

rec::iv Mcfv::vatRow(int row) const {
  rec::iv vat;
  vat.mese = text1.text().substr(3, 2);
  vat.numero = lastDigits(5);
  vat.datadoc = text3.text();
  vat.conto = customer_;
  vat.imponibile = imponibile[row].number();
  vat.codiva = codiva[row].text();
  vat.imposta = importoiva[row].number();
  vat.registro = text7.text();
  vat.chiavereg = vat.registro + vat.numero;
  vat.datareg = text1.text();
  return vat;
}

// The number of the document with `digits` digits: zeros in front, the last ones of a longer number.
std::string Mcfv::lastDigits(std::size_t digits) const {
  return common::right(common::zeroFill(text2.text(), digits), digits);
}

bool Mcfv::numberTaken() {
  OpenArchive<rec::iv> iv(session_, 1524, 1525);
  return iv->search(10, text7.text() + lastDigits(5)) == store::kOk;
}

double Mcfv::rowsTotal() const {
  double total = 0;
  for (int row = 1; row <= righe.rows(); ++row) total += imponibile[row].number() + importoiva[row].number();
  return total;
}

void Mcfv::clear() {
  for (ui::Control* control : controls())
    if (auto* field = dynamic_cast<ui::Field*>(control)) field->clear();
  text7.setText("1");
  showBalance();
}

}  // namespace

namespace tarvex {
std::unique_ptr<ui::Form> makeMcfv(Session& session) { return std::make_unique<Mcfv>(session); }
}  // namespace tarvex
