// Verifica prima nota: whether the journal balances on every day of the year.
#include "common/amount.h"
#include "common/mask.h"
#include "ledger/books/forms.h"
#include "ledger/books/journal_walk.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

struct DayFault {
  std::string date;
  double difference;
};

// Nothing when the journal cannot be read, which has been reported, or the user stops it.
std::optional<std::vector<DayFault>> daysOutOfBalance(Session& session) {
  constexpr std::size_t atOnce = 1000;
  const Busy busy(session.desk());
  const std::size_t all = journalRows(session);
  std::vector<DayFault> faults;
  std::string day;
  double difference = 0;
  const auto close = [&] {
    if (common::roundBalance(difference) != 0) faults.push_back({dateOf(day), difference});
    difference = 0;
  };
  std::size_t done = 0;
  JournalWalk walk = JournalWalk::byDate(session, {session.WorkYear, session.WorkYear + "9999"});
  while (const rec::mc* row = walk.next()) {
    if (row->datareg != day) close();
    day = row->datareg;
    difference = common::roundBalance(difference + row->dare - row->avere);
    if (++done % atOnce == 0 && !session.desk().progress(done, all)) return {};
  }
  close();
  if (!walk.isWhole()) return {};
  return faults;
}

class Verpn : public Form {
 public:
  explicit Verpn(Session& session);
  Layout layout() const override { return column({row({rows}), space(), buttons({ok, annulla})}); }

 private:
  void verify();

  Session& session_;
  Label rows{*this, "righe", "Righe di prima nota:", 10};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Verpn::Verpn(Session& session) : Form(session.desk(), "VERPN", "Verifica prima nota"), session_(session) {
  rows.setText(std::to_string(journalRows(session)));
  ok.onPress = [this] { verify(); };
  annulla.onPress = [this] { close(); };
}

void Verpn::verify() {
  const auto faults = daysOutOfBalance(session_);
  if (!faults) return;
  for (const DayFault& fault : *faults)
    desk().show({"Sbilancio di " + common::format("0.00", fault.difference) + " il giorno " + fault.date,
                 "ATTENZIONE", Ask::ok, Icon::warning});
  desk().show({"Operazione effettuata", std::string(kProduct), Ask::ok, Icon::information});
}

}  // namespace

std::unique_ptr<Form> makeVerpn(Session& session) { return std::make_unique<Verpn>(session); }

}  // namespace tarvex
