// Visualizzazione scheda contabile: the card of a voice on the screen. Under its second name it opens on the
// voice that another screen shows.
#include "chart/account_field.h"
#include "common/date.h"
#include "ledger/books/account_card.h"
#include "ledger/books/date_range.h"
#include "ledger/books/forms.h"
#include "session/checks.h"
#include "session/printing.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class CardRows : public Rows {
 public:
  explicit CardRows(std::vector<CardRow> rows) : rows_(std::move(rows)) {}
  std::size_t count() const override { return rows_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override {
    const CardRow& shown = rows_[row];
    switch (column) {
      case 0:
        return shown.date;
      case 1:
        return shown.document;
      case 2:
        return shown.protocol;
      case 3:
        return shown.text;
      case 4:
        return BookMoney().text(shown.dare);
      default:
        return BookMoney().text(shown.avere);
    }
  }

 private:
  std::vector<CardRow> rows_;
};

class Visched : public Form {
 public:
  Visched(Session& session, std::string_view name, std::string voice);
  Layout layout() const override;
  void load() override;

 private:
  bool readVoiceTyped();
  void show();
  void print();

  Session& session_;
  std::string code_;
  std::optional<AccountCard> card_;
  Field sottoconto{*this, "text1", "Sottoconto:", Mask::text(30)};
  Field data{*this, "text2", "Dalla data:", Mask::pattern(session_.YearDateMask)};
  Button mostra{*this, "mostra", "&Visualizza", Button::Role::main};
  List righe{*this,
             "righe",
             "Scheda",
             {{"Data", 10},
              {"N. e Data doc.", 18},
              {"Prot.", 6},
              {"Descrizione movimento", 37},
              {"Dare", 14, true},
              {"Avere", 14, true}}};
  Label iniziale{*this, "iniziale", "Saldo iniz.:", 16};
  Label dare{*this, "dare", "Prog. dare:", 16};
  Label avere{*this, "avere", "Prog. avere:", 16};
  Label finale{*this, "finale", "Saldo finale:", 16};
  Button stampa{*this, "stampa", "&Stampa"};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Visched::Visched(Session& session, std::string_view name, std::string voice)
    : Form(session.desk(), name, "Visualizzazione scheda contabile"),
      session_(session),
      code_(std::move(voice)) {
  data.setText(session.YearStartDate);
  accountField(session, sottoconto, {"s", "c", "f", "ag"}, SearchList::postable);
  righe.setHeight(14);
  mostra.onPress = [this] { show(); };
  stampa.onPress = [this] { print(); };
  chiudi.onPress = [this] { close(); };
}

Layout Visched::layout() const {
  return column({row({sottoconto, data, mostra}), righe, row({iniziale, dare}), row({finale, avere}),
                 buttons({stampa, chiudi})});
}

void Visched::load() {
  if (code_.empty() || !readVoiceByCode(session_, code_, 2617)) return;
  sottoconto.setText(session_.pc.B.ragsoc);
  show();
}

bool Visched::readVoiceTyped() {
  if (sottoconto.empty() || !readVoice(session_, sottoconto.text(), 2618)) return false;
  code_ = session_.pc.primaryKey();
  const std::string& kind = session_.pc.B.tipo;
  return kind != "m" && kind != "cc";
}

void Visched::show() {
  card_.reset();
  righe.setRows(std::vector<std::vector<std::string>>());
  if (!readVoiceTyped()) return desk().refuse("Non è stato inserito il sottoconto", sottoconto);
  std::string date = data.text();
  if (!ValidateDate(session_, date)) return data.focus();
  const Busy busy(desk());
  card_ = readCard(session_, code_, {common::DateToKey(date), wholeYear(session_).to});
  if (!card_) return;
  righe.setRows(std::make_unique<CardRows>(card_->rows));
  iniziale.setNumber(card_->opening);
  dare.setNumber(card_->dare);
  avere.setNumber(card_->avere);
  finale.setNumber(card_->closing());
}

void Visched::print() {
  if (!card_) show();
  if (!card_) return;
  const CardsPage page{{common::DateToKey(data.text()), wholeYear(session_).to}, {}, session_.CompanyName};
  desk().preview(layOutCards({*card_}, page, printSetup(session_)));
}

}  // namespace

std::unique_ptr<Form> makeVisched(Session& session) {
  return std::make_unique<Visched>(session, "visched", std::string());
}
std::unique_ptr<Form> makeVisched1(Session& session) {
  return std::make_unique<Visched>(session, "visched1", std::exchange(session.VoiceToShow, {}));
}

}  // namespace tarvex
