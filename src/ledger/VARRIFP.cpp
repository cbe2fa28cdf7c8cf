// Variazione riferimento partita: gives lines of a customer or supplier the document to which they belong, so
// that a collection stands beside its invoice.
#include "chart/account_field.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "ledger/books/forms.h"
#include "ledger/books/journal_walk.h"
#include "ledger/vat_rows.h"
#include "session/checks.h"
#include "store/group.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

std::string amount(double value) { return common::format("##,###,##0.00", value); }

class Varrifp : public Form {
 public:
  explicit Varrifp(Session& session);
  Layout layout() const override;

 private:
  struct Line {
    std::string key;
    rec::mc row;
  };
  Leave leaveSubject();
  void list();
  void propose();
  bool mayGroup();
  void regroup();
  void rewrite(archives::Archive<rec::mc>& mc, const std::string& key);

  Session& session_;
  std::string code_;  // of the customer or supplier listed
  std::vector<Line> lines_;
  Field soggetto{*this, "text1", "Cliente/Fornitore:", Mask::text(30)};
  List righe{*this,
             "righe",
             "Righe",
             {{"N.doc.", 8},
              {"Data doc.", 11},
              {"Descrizione movimento", 40},
              {"Dare", 14, true},
              {"Avere", 14, true}},
             List::Marks::several};
  Field numero{*this, "text2", "Numero documento:", Mask::digits(6)};
  Field data{*this, "text3", "Data documento:", Mask::pattern("__/__/____")};
  Button raggruppa{*this, "raggruppa", "&Raggruppa", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Varrifp::Varrifp(Session& session)
    : Form(session.desk(), "VARRIFP", "Variazione riferimento partita"), session_(session) {
  accountField(session, soggetto, {"c", "f", "ag"}, SearchList::customersAndSuppliers);
  soggetto.onLeave = [this] { return leaveSubject(); };
  righe.onSelect = [this] { propose(); };
  raggruppa.onPress = [this] { regroup(); };
  annulla.onPress = [this] { close(); };
}

Layout Varrifp::layout() const {
  return column({row({soggetto}), righe, group("Nuovo riferimento", {row({numero, data})}),
                 buttons({raggruppa, annulla})});
}

Leave Varrifp::leaveSubject() {
  code_.clear();
  if (!soggetto.empty() && readVoice(session_, soggetto.text(), 2630)) {
    const std::string& kind = session_.pc.B.tipo;
    if (kind == "c" || kind == "f" || kind == "ag") code_ = session_.pc.primaryKey();
  }
  list();
  if (soggetto.empty() || !code_.empty()) return Leave::go;
  desk().beep();
  return Leave::stay;
}

void Varrifp::list() {
  lines_.clear();
  std::vector<std::vector<std::string>> shown;
  if (!code_.empty()) {
    JournalWalk walk = JournalWalk::byDocument(session_, code_);
    while (const rec::mc* row = walk.next()) {
      lines_.push_back({walk.key(), *row});
      shown.push_back(
          {row->numdoc, dateOf(row->datadoc), row->descrizione, amount(row->dare), amount(row->avere)});
    }
  }
  righe.setRows(std::move(shown));
}

// The first line chosen proposes its own document to the others.
void Varrifp::propose() {
  if (righe.selectedRows().size() != 1) return;
  const rec::mc& row = lines_[static_cast<std::size_t>(righe.selected())].row;
  numero.setText(row.numdoc);
  data.setText(dateOf(row.datadoc));
}

bool Varrifp::mayGroup() {
  const auto refuse = [this](Field& field, const char* text) { return desk().refuse(text, field), false; };
  if (code_.empty()) return refuse(soggetto, "Non è stato inserito il cliente/fornitore");
  if (righe.selectedRows().empty()) return desk().refuse("Non è stato scelto un articolo", righe), false;
  if (numero.empty()) return refuse(numero, "Non è stato inserito il documento");
  std::string date = data.text();
  if (!ValidateDate(session_, date)) return data.focus(), false;
  // The VAT registers find their entry by its own number: an invoice keeps the one that it bears.
  const std::string number = common::zeroFill(numero.text(), 6), key = common::DateToKey(date);
  for (const int at : righe.selectedRows()) {
    const rec::mc& row = lines_[static_cast<std::size_t>(at)].row;
    if (vatSideOf(row.causale) && (row.numdoc != number || row.datadoc != key)) {
      desk().refuse("Il riferimento di una fattura può essere variato soltanto con la sua revisione", righe);
      return false;
    }
  }
  return true;
}

void Varrifp::regroup() {
  if (!mayGroup()) return;
  store::Group group(session_.store, session_.groupLog(), session_.pr.code, 2631);
  session_.pr.spinLock("mc");
  {
    OpenArchive<rec::mc> mc(session_, 2632, 2633);
    for (const int at : righe.selectedRows()) rewrite(*mc, lines_[static_cast<std::size_t>(at)].key);
  }
  session_.pr.unlock("mc");
  group.commit();
  list();
}

// The line is read again under the lock: another station may have removed it meanwhile.
void Varrifp::rewrite(archives::Archive<rec::mc>& mc, const std::string& key) {
  if (mc.search(0, key) != store::kOk || mc.B.conto != code_) return;
  mc.A = mc.B;
  mc.A.numdoc = common::zeroFill(numero.text(), 6);
  mc.A.datadoc = common::DateToKey(data.text());
  mc.A.chiavecontodoc = mc.A.conto + mc.A.datadoc + mc.A.numdoc;
  mc.A.chiavedatadoc = mc.A.datareg + mc.A.numdoc;
  mc.put(key, store::Put::rewrite);
  session_.CheckArchiveResult(store::Operation::write, mc.code, 2634);
}

}  // namespace

std::unique_ptr<Form> makeVarrifp(Session& session) { return std::make_unique<Varrifp>(session); }

}  // namespace tarvex
