#include "parties/sheet.h"

#include <algorithm>
#include <utility>

#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "parties/card.h"
#include "parties/turnover_page.h"

namespace tarvex {
namespace {

using namespace ui;

std::string amount(double value) { return common::format("###,###,##0.00", value); }

// --- documents: for each one a row of numbers, a row of dates and a line that ends it ---

constexpr int kDocumentRows = 3;

class DocumentRows : public Rows {
 public:
  explicit DocumentRows(std::vector<PartyDocument> documents) : documents_(std::move(documents)) {}
  std::size_t count() const override { return documents_.size() * kDocumentRows; }
  std::string cell(std::size_t row, std::size_t column) const override {
    const PartyDocument& document = documents_[row / kDocumentRows];
    const std::size_t part = row % kDocumentRows;
    return part == 0 ? document.numbers[column] : part == 1 ? document.dates[column] : "----------";
  }

 private:
  std::vector<PartyDocument> documents_;
};

struct DocumentsPage {
  DocumentsPage(Session& of, Form& form, std::span<const DocumentColumn> kinds)
      : session(of), columns(kinds), documenti(form, "documenti", "Documenti", titles(kinds)) {
    documenti.onPick = [this] { open(); };
  }
  void show(const std::string& code) {
    std::vector<PartyDocument> documents = documentsOf(session, code, columns);
    keys.clear();
    for (const PartyDocument& document : documents) keys.push_back(document.key);
    documenti.setRows(std::make_unique<DocumentRows>(std::move(documents)));
  }
  void open() {
    if (documenti.selected() < 0 || !session.knows("VISDOC1")) return session.desk().beep();
    session.DocumentToShow = keys[static_cast<std::size_t>(documenti.selected()) / kDocumentRows];
    session.run("VISDOC1");
  }
  static std::vector<ListColumn> titles(std::span<const DocumentColumn> kinds) {
    std::vector<ListColumn> columns;
    for (const DocumentColumn& kind : kinds) columns.push_back({kind.head, 10});
    return columns;
  }

  Session& session;
  std::span<const DocumentColumn> columns;
  std::vector<std::string> keys;
  List documenti;
};

// --- due dates ---

struct DueList {
  DueList(Form& form, std::string_view name, std::string_view total, std::string_view caption)
      : elenco(form, name, caption, {{"N. e data fatt.", 20}, {"Importo", 14, true}, {"Scadenza", 12}}),
        totale(form, total, "Totale", 15) {}
  Layout layout() const { return column({elenco, row({totale})}); }
  void show(const std::vector<DueDate>& items) {
    std::vector<std::vector<std::string>> rows;
    double sum = 0;
    for (const DueDate& due : items) {
      rows.push_back(
          {due.numero + "  " + shownDate(due.datafatt), amount(due.importo), shownDate(due.scadenza)});
      sum += due.importo;
    }
    elenco.setRows(std::move(rows));
    totale.setText(amount(sum));
  }

  List elenco;
  Label totale;
};

// --- the form ---

const Words kCustomerPages{"Anagrafica", "Condizioni", "Contabilità", "Documenti",
                           "Scadenze",   "Fatturato",  "Destinazioni"};
const Words kSupplierPages{"Anagrafica", "Condizioni", "Contabilità",
                           "Documenti",  "Scadenze",   "Destinazioni"};
const Words kAgentPages{"Anagrafica", "Condizioni", "Contabilità", "Scadenze"};

class PartySheet : public Form {
 public:
  PartySheet(Session& session, const SheetKind& kind);
  Layout layout() const override;

 private:
  Leave leaveSearch();
  void show();
  void showAgents(const rec::pc& party);
  void showDestinations(const rec::pc& party);
  void showDueLists();
  void showAccount();
  Layout pageOf(SheetPage page) const;

  Session& session_;
  const SheetKind& kind_;
  const bool customer_ = kind_.party.isCustomer(), documents_ = !kind_.documents.empty();
  std::string code_;

  Field ricerca{*this, "ricerca", kind_.party.field, Mask::text(30)};
  Tabs schede{*this, "schede", customer_ ? kCustomerPages : documents_ ? kSupplierPages : kAgentPages};
  std::vector<std::unique_ptr<Label>> values_;                          // of kind_.lines in turn
  std::unique_ptr<Label> agente1, agente2, provvigione1, provvigione2;  // of customers
  std::unique_ptr<DocumentsPage> documenti;
  std::unique_ptr<DueList> prima, seconda;
  std::unique_ptr<Button> carica;
  std::unique_ptr<TurnoverPage> fatturato;
  Memo note{*this, "note", "Note", Memo::Look::rich};
  std::unique_ptr<List> destinazioni;
  Button scheda{*this, "scheda", "Scheda con&tabile"};
  Button chiudi{*this, "chiudi", "C&hiudi", Button::Role::cancel};
};

PartySheet::PartySheet(Session& session, const SheetKind& kind)
    : Form(session.desk(), kind.unit, kind.title), session_(session), kind_(kind) {
  accountField(session_, ricerca, {kind_.party.tipo}, kind_.party.search);
  ricerca.onLeave = [this] { return leaveSearch(); };
  for (const SheetLine& line : kind_.lines)
    values_.push_back(std::make_unique<Label>(*this, line.name, line.caption, line.width));
  if (customer_) {
    agente1 = std::make_unique<Label>(*this, "agente1", "Agente 1°", 32);
    provvigione1 = std::make_unique<Label>(*this, "provvigione1", "Provvigione:", 8);
    agente2 = std::make_unique<Label>(*this, "agente2", "Agente 2°", 32);
    provvigione2 = std::make_unique<Label>(*this, "provvigione2", "Provvigione:", 8);
  }
  if (documents_) documenti = std::make_unique<DocumentsPage>(session_, *this, kind_.documents);
  prima = std::make_unique<DueList>(*this, "elenco1", "totale1", kind_.firstList);
  seconda = std::make_unique<DueList>(*this, "elenco2", "totale2", kind_.secondList);
  if (kind_.dueListsOnDemand) {
    carica = std::make_unique<Button>(*this, "carica", "&Carica dati");
    carica->onPress = [this] { showDueLists(); };
  }
  if (customer_) fatturato = std::make_unique<TurnoverPage>(session_, *this);
  if (documents_)
    destinazioni = std::make_unique<List>(
        *this, "destinazioni", "Destinazioni",
        std::vector<ListColumn>{{"N.", 4, true}, {"Nominativo", 30}, {"Indirizzo", 30}, {"Città", 24}});
  note.setReadOnly();
  scheda.setEnabled(session.knows("visched1"));
  scheda.onPress = [this] { showAccount(); };
  chiudi.onPress = [this] { close(); };
}

// --- how it lies ---

Layout PartySheet::layout() const {
  Layout first = pageOf(SheetPage::anagrafica);
  first.parts.push_back(note);  // the first to take the focus, so that a card begins on its first page
  Layout pages = tabs(schede, {first, pageOf(SheetPage::condizioni), pageOf(SheetPage::contabilita)});
  const Layout lists = side({prima->layout(), seconda->layout()});
  if (documenti) pages.parts.push_back(column({documenti->documenti}));
  pages.parts.push_back(carica ? column({lists, buttons({*carica})}) : lists);
  if (fatturato) pages.parts.push_back(fatturato->layout());
  if (destinazioni) pages.parts.push_back(column({*destinazioni}));
  return column({row({ricerca}), pages, buttons({scheda, chiudi})});
}

Layout PartySheet::pageOf(SheetPage page) const {
  Layout rows = column({});
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const SheetLine& line = kind_.lines[i];
    if (line.page != page) continue;
    if (!line.sameRow || rows.parts.empty()) rows.parts.push_back(row({}));
    rows.parts.back().parts.push_back(*values_[i]);
  }
  if (page == SheetPage::condizioni && customer_) {
    rows.parts.push_back(row({*agente1, *provvigione1}));
    rows.parts.push_back(row({*agente2, *provvigione2}));
  }
  return rows;
}

// --- what it shows ---

Leave PartySheet::leaveSearch() {
  const std::string name = common::trim(ricerca.text());
  if (name.empty()) return Leave::go;
  if (!readVoice(session_, name, 4320) || session_.pc.B.tipo != kind_.party.tipo) {
    desk().beep();
    return Leave::stay;
  }
  show();
  return Leave::go;
}

// A copy: the agents are read through the same buffer.
void PartySheet::show() {
  const Busy busy(desk());
  const rec::pc party = session_.pc.B;
  const bool another = std::exchange(code_, session_.pc.primaryKey()) != session_.pc.primaryKey();
  for (std::size_t i = 0; i < values_.size(); ++i) values_[i]->setText(kind_.lines[i].text(party));
  note.setText(party.note);
  if (customer_) showAgents(party);
  if (destinazioni) showDestinations(party);
  if (documenti) documenti->show(code_);
  if (!kind_.dueListsOnDemand) showDueLists();
  if (!another) return;  // what was asked for stays
  if (fatturato) fatturato->start(code_);
  if (!kind_.dueListsOnDemand) return;
  prima->show({});
  seconda->show({});
}

void PartySheet::showAgents(const rec::pc& party) {
  const auto nameOf = [&](const std::string& code, int position) {
    return !code.empty() && readVoiceByCode(session_, code, position) ? session_.pc.B.ragsoc : std::string();
  };
  agente1->setText(nameOf(party.agente1, 4321));
  agente2->setText(nameOf(party.agente2, 4322));
  provvigione1->setText(common::format("#0.0", party.provvigione1));
  provvigione2->setText(common::format("#0.0", party.provvigione2));
}

void PartySheet::showDestinations(const rec::pc& party) {
  std::vector<std::vector<std::string>> rows;
  for (std::size_t slot = 1; slot < party.destnominativo.size(); ++slot) {
    const std::string &name = party.destnominativo[slot], &address = party.destindirizzo[slot],
                      &city = party.destcitta[slot];
    if (!(name + address + city).empty()) rows.push_back({std::to_string(slot), name, address, city});
  }
  destinazioni->setRows(std::move(rows));
}

void PartySheet::showDueLists() {
  if (code_.empty()) return desk().beep();
  const DueLists lists = kind_.dueLists(session_, code_);
  prima->show(lists.first);
  seconda->show(lists.second);
}

void PartySheet::showAccount() {
  if (code_.empty()) return desk().beep();
  session_.VoiceToShow = code_;
  session_.run("visched1");
}

}  // namespace

std::unique_ptr<Form> makeSheet(Session& session, const SheetKind& kind) {
  return std::make_unique<PartySheet>(session, kind);
}

}  // namespace tarvex
