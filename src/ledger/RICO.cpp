// Ricostruzione progressivi: the progressives of the chart computed anew from the journal. One group, so that
// a crash leaves them as they were, and other stations wait.
#include <set>

#include "archives/mc.h"
#include "ledger/forms.h"
#include "store/group.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;
using archives::Archive;
using store::Operation;

class Rico : public Form {
 public:
  explicit Rico(Session& session);
  Layout layout() const override { return column({row({testo}), buttons({ok, annulla})}); }

 private:
  void confirm();

  Session& session_;
  Label testo{*this, "testo"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

// The work itself, step by step.
class Rebuilding {
 public:
  explicit Rebuilding(Session& session) : session_(session), pc_(session.pc) {}
  void run();

 private:
  void readState();
  void clearVoices();
  void addRows();
  void addRow(const rec::mc& row);
  bool add(const std::string& code, double dare, double avere, bool openingPosted);
  void takeOpeningOut();
  void write(const std::string& code, int position);
  template <class Change>
  void eachVoice(int readPosition, const Change& change);
  void step();

  Session& session_;
  Archive<rec::pc>& pc_;
  std::size_t done_ = 0, all_ = 1;
  bool openingPosted_ = false;
  std::set<std::string> missing_;  // voices that were told once
};

void plainBalance(rec::pc& voice) { voice.saldo = voice.saldoiniziale + voice.dare - voice.avere; }

void Rebuilding::step() {
  if (++done_ % 1024 == 0) session_.desk().progress(done_, all_);
}

void Rebuilding::readState() {
  session_.pr.B = {};
  session_.pr.search(0, "mc");
  session_.CheckArchiveResult(Operation::read, session_.pr.code, 2700);
  all_ = static_cast<std::size_t>(session_.pr.B.valore) * 3 / 2 + 1;
  session_.ct.B = {};
  session_.ct.search(0, "1");
  session_.CheckArchiveResult(Operation::read, session_.ct.code, 2701);
  openingPosted_ = session_.ct.B.bapflag == "n";
}

void Rebuilding::write(const std::string& code, int position) {
  pc_.put(code, store::Put::rewrite);
  session_.CheckArchiveResult(Operation::write, pc_.code, position);
  pc_.flush();
}

// `change` has the voice in A, and answers whether it is to be written.
template <class Change>
void Rebuilding::eachVoice(int readPosition, const Change& change) {
  pc_.bof(0);
  while (pc_.next(0) == store::kOk) {
    const std::string code = pc_.primaryKey();
    pc_.A = pc_.B;
    if (change(pc_.A)) write(code, 2702);
    step();
  }
  if (session_.store.LastArchiveResult != store::kNotFound)
    session_.CheckArchiveResult(Operation::read, pc_.code, readPosition);
}

void Rebuilding::clearVoices() {
  eachVoice(2703, [](rec::pc& voice) {
    voice.dare = voice.avere = 0;
    plainBalance(voice);
    return true;
  });
}

// False when the voice is not there, which is told the first time.
bool Rebuilding::add(const std::string& code, double dare, double avere, bool openingPosted) {
  if (pc_.search(0, code) != store::kOk) {
    if (missing_.insert(code).second) session_.CheckArchiveResult(Operation::read, pc_.code, 2704);
    return false;
  }
  pc_.A = pc_.B;
  pc_.A.dare += dare;
  pc_.A.avere += avere;
  plainBalance(pc_.A);
  if (openingPosted) pc_.A.saldo = pc_.A.dare - pc_.A.avere;
  write(code, 2705);
  return true;
}

// Of the levels above, the balance is the plain one also where the opening entry is in the journal.
void Rebuilding::addRow(const rec::mc& row) {
  if (!row.datareg.starts_with(session_.WorkYear)) return;
  if (!add(row.conto, row.dare, row.avere, openingPosted_)) return;
  const std::string mastro = pc_.B.mastro, conto = pc_.B.conto;
  add(mastro, row.dare, row.avere, false);
  add(conto, row.dare, row.avere, false);
}

void Rebuilding::addRows() {
  OpenArchive<rec::mc> mc(session_, 2706, 2707);
  if (!mc->isOpen()) return;
  store::Code code = mc->search(12, session_.WorkYear);
  if (code == store::kNotFound) code = mc->next(12);
  for (; code == store::kOk; code = mc->next(12)) {
    addRow(mc->B);
    step();
  }
  if (code == store::kNotFound) return;
  session_.store.LastArchiveResult = code;
  session_.CheckArchiveResult(Operation::read, mc->code, 2708);
}

// With the opening entry in the journal the opening amounts would count twice.
void Rebuilding::takeOpeningOut() {
  eachVoice(2709, [](rec::pc& voice) {
    if (voice.natura != "p") return false;
    if (voice.saldoiniziale > 0) voice.dare -= voice.saldoiniziale;
    if (voice.saldoiniziale < 0) voice.avere += voice.saldoiniziale;
    plainBalance(voice);
    return true;
  });
}

void Rebuilding::run() {
  readState();
  store::Group group(session_.store, session_.groupLog(), pc_.code, 2710);
  clearVoices();
  addRows();
  if (openingPosted_) takeOpeningOut();
  group.commit();
}

Rico::Rico(Session& session) : Form(session.desk(), "RICO", "Ricostruzione progressivi"), session_(session) {
  testo.setText("I progressivi del piano dei conti saranno ricalcolati dalla prima nota");
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Rico::confirm() {
  {
    const Busy busy(desk());
    Rebuilding(session_).run();
  }
  close();
}

}  // namespace

std::unique_ptr<Form> makeRico(Session& session) { return std::make_unique<Rico>(session); }

}  // namespace tarvex
