#include "ledger/movement_form.h"

#include "chart/account_field.h"
#include "chart/frequent.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/entry_checks.h"
#include "ledger/movement_entry.h"
#include "ledger/revision.h"
#include "session/checks.h"
#include "session/schemes.h"

namespace tarvex {
namespace {

using ui::Leave, ui::Mask;

// A line as its fields hold it. The screen shows some of the lines; all of them are kept here.
struct TypedLine {
  std::string conto, agg, dare, avere;
  std::string segno = {};  // of a scheme: "d" or "a" is the one side that may be typed
};

class MovementForm : public ui::Form {
 public:
  MovementForm(Session& session, const MovementKind& kind);
  ui::Layout layout() const override;
  void load() override;
  bool mayClose() override { return revision_.mayLeave(); }

 private:
  int decimals() const { return kind_.lire ? 0 : 2; }
  void setEvents();
  void fillFrom(const JournalEntry& entry);
  void fillFrom(const rec::ax& scheme);

  void turn(int page);
  void keepPage();
  void showPage();
  void showTotals();
  TypedLine& line(int number) { return lines_[static_cast<std::size_t>(number - 1)]; }

  Leave leaveVoice(ui::Field& field);
  void chooseScheme();

  void registerMovement();
  bool mayRegister(Movement& movement);
  bool linesRight(const Movement& movement);
  bool voicesThere(Movement& movement);
  ui::Field& cellOf(ui::GridColumn& column, int number);

  Movement movement() const;
  void clear();

  Session& session_;
  const MovementKind& kind_;
  Revision revision_;
  std::vector<TypedLine> lines_;
  int shown_ = 0;       // page of lines_ that the cells hold
  std::string scheme_;  // that the rows come from

  std::unique_ptr<ui::Choice> schemes_ =
      kind_.automated ? std::make_unique<ui::Choice>(*this, "Combo1", "Causale:", ui::Choice::Look::combo)
                      : nullptr;
  ui::Field text1{*this, "text1", "Data reg.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text2{*this, "text2", "N. doc.:", Mask::digits(10)};
  ui::Field text3{*this, "text3", "Data doc.:", Mask::pattern(session_.YearDateMask)};
  ui::Field text4{*this, "text4", "Descrizione:", Mask::text(50)};
  ui::Grid righe{*this, "righe", kind_.rows, kind_.pages};
  ui::GridLabels numero{righe, "LabelX", "N.", 3};
  ui::GridColumn conto{righe, "conto", "Conto", Mask::text(30)};
  ui::GridColumn agg{righe, "agg", "Descrizione aggiunta", Mask::text(30)};
  ui::GridColumn dare{righe, "dare", "Dare", Mask::amount(decimals())};
  ui::GridColumn avere{righe, "avere", "Avere", Mask::amount(decimals())};
  ui::Label totaleDare{*this, "totaledare", "Totale dare:", 15};
  ui::Label totaleAvere{*this, "totaleavere", "Totale avere:", 15};
  ui::Label differenza{*this, "differenza", "Differenza:", 15};
  ui::Button registra{*this, "registra", "&Registra", ui::Button::Role::main};
  ui::Button nuovoSottoconto{*this, "nuovosottoconto", "Nuovo &sottoconto"};
  ui::Button annulla{*this, "annulla", "&Annulla", ui::Button::Role::cancel};
};

MovementForm::MovementForm(Session& session, const MovementKind& kind)
    : Form(session.desk(), kind.unit, kind.title),
      session_(session),
      kind_(kind),
      revision_(session, kind.revision),
      lines_(static_cast<std::size_t>(kind.rows * kind.pages)) {
  nuovoSottoconto.setEnabled(session.knows("RPC"));
  setEvents();
  showPage();
  showTotals();
}

void MovementForm::setEvents() {
  if (schemes_) schemes_->onLeave = [this] { return chooseScheme(), Leave::go; };
  checkRegistrationDate(session_, text1);
  checkDate(session_, text3);
  conto.onEach([this](ui::Field& cell, int) {
    accountField(session_, cell, {"s", "c", "f", "ag"}, SearchList::postable);
    cell.onLeave = [this, &cell] { return leaveVoice(cell); };
    cell.on(ui::Key::F7, [this, &cell] {
      if (const std::string chosen = pickFrequent(session_); !chosen.empty()) cell.setText(chosen);
    });
  });
  for (ui::GridColumn* amounts : {&dare, &avere})
    amounts->onEach([this](ui::Field& cell, int) {
      cell.onLeave = [this] { return keepPage(), showTotals(), Leave::go; };
    });
  righe.onPage = [this] { turn(righe.page()); };
  registra.onPress = [this] { registerMovement(); };
  nuovoSottoconto.onPress = [this] { session_.open("RPC"); };
  annulla.onPress = [this] {
    if (mayClose()) close();
  };
}

// Without boxes around its parts, so that twenty lines fit the smallest screen.
ui::Layout MovementForm::layout() const {
  ui::Layout head = ui::row({text1, text2, text3, text4});
  ui::Layout all = ui::column({head, ui::Layout(righe), ui::row({totaleDare, totaleAvere, differenza}),
                               ui::buttons({registra, nuovoSottoconto, annulla})});
  if (schemes_) all.parts.insert(all.parts.begin(), ui::row({*schemes_}));
  return all;
}

void MovementForm::load() {
  if (schemes_) schemes_->setItems(schemeNames(session_));
  if (revision_.entry()) fillFrom(*revision_.entry());
}

// --- the entry that is revised, the scheme that it begins from ---

void MovementForm::fillFrom(const JournalEntry& entry) {
  const rec::mc& first = entry.lines.front();
  text1.setText(screenDate(first.datareg));
  text2.setText(plainNumber(first.numdoc));
  text3.setText(screenDate(first.datadoc));
  std::string description = first.descrizione;
  if (!entry.rows.empty() && description.ends_with(entry.rows.front().testo))
    description.resize(description.size() - entry.rows.front().testo.size());
  text4.setText(description);
  const auto amountText = [](double amount) { return amount == 0 ? std::string() : common::toText(amount); };
  for (std::size_t i = 0; i < entry.rows.size() && i < lines_.size(); ++i) {
    const rec::tt& row = entry.rows[i];
    const std::string name = i < entry.lines.size() ? voiceName(session_, entry.lines[i].conto) : row.voce;
    lines_[i] = {name, row.testo, amountText(common::numberValue(row.codice)),
                 amountText(common::numberValue(row.importo))};
  }
  for (std::size_t i = 0; entry.rows.empty() && i < entry.lines.size() && i < lines_.size(); ++i) {
    const rec::mc& row = entry.lines[i];  // posted without a screen
    lines_[i] = {voiceName(session_, row.conto), "", amountText(row.dare), amountText(row.avere)};
  }
  showPage();
  showTotals();
}

void MovementForm::fillFrom(const rec::ax& scheme) {
  if (text4.empty() || text4.text() == scheme_) text4.setText(scheme.nome);
  scheme_ = scheme.nome;
  for (std::size_t i = 0; i < lines_.size() && i < scheme.righe.size(); ++i)
    lines_[i] = {scheme.righe[i].conto, scheme.righe[i].agg, "", "", scheme.righe[i].segno};
  showPage();
  showTotals();
}

// --- the pages ---

void MovementForm::turn(int page) {
  keepPage();
  shown_ = page;
  showPage();
}

void MovementForm::keepPage() {
  for (int row = 1; row <= righe.rows(); ++row) {
    TypedLine& kept = line(shown_ * righe.rows() + row);
    kept = {conto[row].text(), agg[row].text(), dare[row].text(), avere[row].text(), kept.segno};
  }
}

void MovementForm::showPage() {
  for (int row = 1; row <= righe.rows(); ++row) {
    const int at = shown_ * righe.rows() + row;
    const TypedLine& kept = line(at);
    numero[row].setText(common::format("###", at));
    conto[row].setText(kept.conto);
    agg[row].setText(kept.agg);
    dare[row].setText(kept.dare);
    avere[row].setText(kept.avere);
    dare[row].setEnabled(kept.segno != "a");
    avere[row].setEnabled(kept.segno != "d");
  }
}

void MovementForm::showTotals() {
  double debit = 0, credit = 0;
  for (const TypedLine& one : lines_) {
    debit += common::toNumber(one.dare);
    credit += common::toNumber(one.avere);
  }
  totaleDare.setNumber(debit, decimals());
  totaleAvere.setNumber(credit, decimals());
  differenza.setNumber(common::roundBalance(debit - credit), decimals());
}

// --- on leaving the fields ---

// On a voice that may be posted to its record stands in session_.pc.
Leave MovementForm::leaveVoice(ui::Field& field) {
  if (common::trim(field.text()).empty()) return Leave::go;
  if (readVoice(session_, field.text(), 1620)) {
    const std::string& tipo = session_.pc.B.tipo;
    if (tipo != "m" && tipo != "cc") return Leave::go;
  }
  session_.desk().beep();
  return Leave::stay;
}

// Coming by the field once more leaves the amounts that were typed alone.
void MovementForm::chooseScheme() {
  if (schemes_->text() == scheme_) return;
  if (const auto scheme = readScheme(session_, schemes_->text())) fillFrom(*scheme);
}

// --- the checks, in their order ---

bool MovementForm::mayRegister(Movement& movement) {
  if (!datesInOrder(session_, text1, text3)) return false;
  movement = this->movement();
  return linesRight(movement) && balances(desk(), imbalance(movement), "0.00") && voicesThere(movement);
}

bool MovementForm::linesRight(const Movement& movement) {
  for (std::size_t i = 0; i < movement.lines.size(); ++i) {
    const auto at = static_cast<int>(i) + 1;
    switch (faultOf(movement.lines[i])) {
      case LineFault::bothSides:
        return refuse(cellOf(dare, at), "E' STATO INSERITO UN IMPORTO SIA IN DARE CHE IN AVERE");
      case LineFault::noAmount:
        return refuse(cellOf(line(at).segno == "a" ? avere : dare, at),
                      "E' STATO INSERITO UN CONTO MA NON L'IMPORTO");
      case LineFault::noAccount:
        return refuse(cellOf(conto, at), "E' STATO INSERITO UN IMPORTO MA NON IL CONTO");
      case LineFault::none:
        break;
    }
  }
  return true;
}

// Also finds the codes. A scheme may name a voice that has been removed since; so may another station's user.
// Without any line there is nothing to register.
bool MovementForm::voicesThere(Movement& movement) {
  bool any = false;
  for (std::size_t i = 0; i < movement.lines.size(); ++i) {
    MovementLine& one = movement.lines[i];
    if (common::trim(one.conto).empty()) continue;
    const auto at = static_cast<int>(i) + 1;
    const bool there = readVoice(session_, one.conto, 1621);
    if (!there && kind_.automated)
      return refuse(cellOf(conto, at),
                    "Un conto (" + one.conto + ") non risulta più registrato nel piano dei conti");
    const std::string& tipo = session_.pc.B.tipo;
    if (!there || tipo == "m" || tipo == "cc") return desk().beep(), cellOf(conto, at).focus(), false;
    one.codice = session_.pc.primaryKey();
    any = true;
  }
  if (!any) desk().beep(), cellOf(conto, 1).focus();
  return any;
}

// The cell of a line, whose page comes forward.
ui::Field& MovementForm::cellOf(ui::GridColumn& column, int number) {
  const int page = (number - 1) / righe.rows();
  if (page != righe.page()) righe.turnTo(page);
  return column[(number - 1) % righe.rows() + 1];
}

// --- the posting ---

void MovementForm::registerMovement() {
  keepPage();
  Movement movement;
  if (!mayRegister(movement)) return;
  if (kind_.lire) convertFromLire(movement, session_.EuroRate);
  const Posted result = postEntry(session_, movementEntry(movement), {.replaces = revision_.nummov()});
  if (!revision_.goesOn(result, *this)) return;
  clear();
  text1.focus();
}

Movement MovementForm::movement() const {
  Movement movement{text1.text(), text3.text(), text2.text(), text4.text(), {}};
  for (const TypedLine& one : lines_)
    movement.lines.push_back(
        {"", one.conto, one.agg, common::toNumber(one.dare), common::toNumber(one.avere)});
  return movement;
}

void MovementForm::clear() {
  for (ui::Field* field : {&text1, &text2, &text3, &text4}) field->clear();
  lines_.assign(lines_.size(), {});
  scheme_.clear();
  if (schemes_) schemes_->select(-1);
  shown_ = 0;
  showPage();
  righe.turnTo(0);
  showTotals();
}

}  // namespace

std::unique_ptr<ui::Form> makeMovementForm(Session& session, const MovementKind& kind) {
  return std::make_unique<MovementForm>(session, kind);
}

}  // namespace tarvex
