// Prima Nota: the journal in a list; and Revisione prima nota, where an entry is chosen to be changed or,
// when it closes or opens the accounts, annulled.
#include <algorithm>
#include <array>

#include "common/date.h"
#include "ledger/books/date_range.h"
#include "ledger/books/journal_list.h"
#include "ledger/forms.h"
#include "ledger/journal_lines.h"
#include "ledger/revision.h"
#include "session/checks.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

// The entries that the year's end posts, and the mark in `ct` that they leave.
struct YearEndEntry {
  std::string_view causale, question;
  std::string rec::ct::*mark;
};
constexpr std::array<YearEndEntry, 2> kYearEndEntries{
    {{"ce", "Si vogliono annullare le registrazioni della chiusura conti economici ?", &rec::ct::cheflag},
     {"cp", "Si vogliono annullare le registrazioni della chiusura conti patrimoniali ?",
      &rec::ct::chpflag}}};

class Vmc : public Form {
 public:
  Vmc(Session& session, bool revises);
  Layout layout() const override;
  void load() override { list(); }

 private:
  void list();
  void change();
  void annul(const YearEndEntry& kind, const std::string& nummov);

  Session& session_;
  DateRangeFields periodo{*this, session_, "text1", "text2"};
  Choice tipo{*this, "tipo", "Movimenti:", Choice::Look::combo};
  Button mostra{*this, "mostra", "Visuali&zza"};
  List righe{*this,
             "righe",
             "Prima nota",
             {{"Data", 11},
              {"N. e Data doc.", 19},
              {"Prot.", 6},
              {"Descrizione mov.", 25},
              {"Sottoconto", 25},
              {"Dare", 12, true},
              {"Avere", 12, true},
              {"Mov.", 7, true}}};
  Button varia{*this, "varia", "&Varia", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
  const JournalLines* lines_ = nullptr;  // those of the list
};

Vmc::Vmc(Session& session, bool revises)
    : Form(session.desk(), revises ? "AMC" : "VMC", revises ? "Revisione prima nota" : "Prima Nota"),
      session_(session) {
  for (const ListedKind& kind : kListedKinds) tipo.addItem(kind.name);
  tipo.select(0);
  righe.setHeight(17);
  tipo.onChange = mostra.onPress = [this] { list(); };
  varia.setVisible(revises);
  varia.onPress = [this] { change(); };
  if (revises) righe.onPick = [this] { change(); };
  annulla.onPress = [this] { close(); };
}

Layout Vmc::layout() const {
  return column({row({periodo.layout(), tipo, mostra}), righe, buttons({varia, annulla})});
}

void Vmc::list() {
  lines_ = nullptr;
  righe.setRows(std::vector<std::vector<std::string>>());
  const auto range = periodo.read();
  if (!range) return;
  const Busy busy(desk());
  auto lines =
      std::make_unique<JournalLines>(session_, *range, kListedKinds[std::max(0, tipo.index())].causale);
  lines_ = lines.get();
  righe.setRows(std::move(lines));
}

void Vmc::change() {
  if (!lines_ || righe.selected() < 0) return desk().refuse("Non è stato scelto un articolo", righe);
  const std::string nummov = lines_->nummov(static_cast<std::size_t>(righe.selected()));
  const auto entry = nummov.empty() ? std::nullopt : readEntry(session_, nummov);
  if (!entry) return tellEntryGone(session_), list();
  const rec::mc& first = entry->lines.front();
  if (first.daemissione == 1)
    return desk().warn("La registrazione è stata effettuata con l'emissione documenti");
  if (!first.datareg.starts_with(session_.WorkYear))
    return desk().warn("La registrazione è di un altro anno, nel quale può essere variata");
  for (const YearEndEntry& kind : kYearEndEntries)
    if (kind.causale == first.causale) return annul(kind, nummov);
  if (!reviseEntry(session_, first.causale, nummov)) return desk().beep();
  const int at = righe.selected();
  list();
  if (righe.reaches(at)) righe.select(at);
}

// The mark falls with the entry, so that the closure can be posted again.
void Vmc::annul(const YearEndEntry& kind, const std::string& nummov) {
  if (!desk().confirm(std::string(kind.question), "ATTENZIONE")) return;
  const bool removed = removeEntry(session_, nummov, [&] {
    auto& ct = session_.ct;
    ct.search(0, "1");
    session_.CheckArchiveResult(store::Operation::read, ct.code, 2002);
    ct.A = ct.B;
    ct.A.*kind.mark = {};
    ct.put("1", store::Put::rewrite);
    session_.CheckArchiveResult(store::Operation::write, ct.code, 2003);
  });
  if (!removed && !readEntry(session_, nummov)) tellEntryGone(session_);
  list();
}

}  // namespace

std::unique_ptr<Form> makeVmc(Session& session) { return std::make_unique<Vmc>(session, false); }
std::unique_ptr<Form> makeAmc(Session& session) { return std::make_unique<Vmc>(session, true); }

}  // namespace tarvex
