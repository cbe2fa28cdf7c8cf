// Estratto conto, on the screen and on paper.
#include "chart/account_field.h"
#include "ledger/books/forms.h"
#include "ledger/books/statement.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

// What both screens ask for: the customer or supplier, and how much of its story.
struct StatementFields {
  StatementFields(Form& form, Session& session)
      : soggetto(form, "text1", "Cliente/Fornitore:", Mask::text(30)),
        scelta(form, "scelta", "Partite:", Choice::Look::options, {"Partite a&perte", "S&torico"}) {
    accountField(session, soggetto, {"c", "f", "ag"}, SearchList::customersAndSuppliers);
    scelta.select(0);
  }

  bool openOnly() const { return scelta.index() <= 0; }

  // Its code; nothing when there is no such customer or supplier, which the user has been told.
  std::optional<std::string> read(Session& session) {
    const bool known = !soggetto.empty() && readVoice(session, soggetto.text(), 2622);
    const std::string kind = known ? session.pc.B.tipo : std::string();
    if (kind == "c" || kind == "f" || kind == "ag") return session.pc.primaryKey();
    session.desk().refuse("Non è stato inserito il cliente/fornitore", soggetto);
    return {};
  }

  Field soggetto;
  Choice scelta;
};

class StatementRows : public Rows {
 public:
  explicit StatementRows(std::vector<StatementRow> rows) : rows_(std::move(rows)) {}
  std::size_t count() const override { return rows_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override {
    const StatementRow& shown = rows_[row];
    if (column == 0) return shown.document;
    if (column == 1) return shown.text;
    return BookMoney().text(column == 2 ? shown.dare : shown.avere);
  }

 private:
  std::vector<StatementRow> rows_;
};

class Vec : public Form {
 public:
  explicit Vec(Session& session);
  Layout layout() const override;

 private:
  void show();

  Session& session_;
  StatementFields dati{*this, session_};
  Button mostra{*this, "mostra", "&Visualizza", Button::Role::main};
  List righe{
      *this,
      "righe",
      "Estratto conto",
      {{"N. e data doc.", 18}, {"Descrizione movimento", 37}, {"Dare", 14, true}, {"Avere", 14, true}}};
  Label saldo{*this, "saldo", "Saldo:", 16};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Vec::Vec(Session& session)
    : Form(session.desk(), "vec", "Visualizzazione estratto conto"), session_(session) {
  mostra.onPress = [this] { show(); };
  dati.scelta.onChange = [this] {
    if (!dati.soggetto.empty()) show();
  };
  chiudi.onPress = [this] { close(); };
}

Layout Vec::layout() const {
  return column({row({dati.soggetto, dati.scelta, mostra}), righe, row({saldo}), buttons({chiudi})});
}

void Vec::show() {
  righe.setRows(std::vector<std::vector<std::string>>());
  saldo.setText({});
  const auto code = dati.read(session_);
  if (!code) return;
  const auto statement = readStatement(session_, *code, dati.openOnly());
  if (!statement) return;
  righe.setRows(std::make_unique<StatementRows>(statement->rows));
  saldo.setNumber(statement->saldo());
}

class Stec : public Form {
 public:
  explicit Stec(Session& session);
  Layout layout() const override;

 private:
  void print();

  Session& session_;
  StatementFields dati{*this, session_};
  Check lire{*this, "lire", "Importi in &Lire"};
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Stec::Stec(Session& session) : Form(session.desk(), "STEC", "Stampa estratto conto"), session_(session) {
  anteprima.set(true);
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Stec::layout() const {
  return column({group("Estratto conto", {row({dati.soggetto}), row({dati.scelta})}),
                 group("Stampa", {row({lire, anteprima})}), space(), buttons({ok, annulla})});
}

void Stec::print() {
  const auto code = dati.read(session_);
  if (!code) return;
  const BookMoney money = lire.on() ? BookMoney::lire(session_) : BookMoney();
  const auto statement = readStatement(session_, *code, dati.openOnly(), money);
  if (!statement) return;
  const StatementPage page{dati.openOnly(), money, session_.CompanyName};
  showReport(desk(), layOut(*statement, page, printSetup(session_)), anteprima.on());
}

}  // namespace

std::unique_ptr<Form> makeVec(Session& session) { return std::make_unique<Vec>(session); }
std::unique_ptr<Form> makeStec(Session& session) { return std::make_unique<Stec>(session); }

}  // namespace tarvex
