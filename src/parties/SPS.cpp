// Stampa parametrica selettiva clienti, fornitori, agenti: one screen, its columns and filters by the kind.
#include <algorithm>

#include "common/text.h"
#include "parties/card.h"
#include "parties/forms.h"
#include "parties/party_list.h"
#include "session/checks.h"
#include "session/printing.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr int kPriceLists = 50;  // numbered from 0
const Words kPages{"Dati da stampare", "Selezione"};

struct TextFilterField {
  std::string_view name, caption;
  int width;
  std::string rec::pc::*field;
};
constexpr TextFilterField kOfCustomers[] = {
    {"text1", "Città:", 30, &rec::pc::citta},
    {"text2", "Provincia:", 2, &rec::pc::provincia},
    {"text3", "Tipo cliente:", 20, &rec::pc::tipocliente},
    {"text4", "Zona:", 10, &rec::pc::zona},
    {"text5", "Campo libero 1°:", 30, &rec::pc::campolibero1},
    {"text6", "Campo libero 2°:", 30, &rec::pc::campolibero2},
};
constexpr TextFilterField kOfSuppliers[] = {
    {"text1", "Città:", 30, &rec::pc::citta},
    {"text2", "Provincia:", 2, &rec::pc::provincia},
    {"text3", "Tipo fornitore:", 20, &rec::pc::tipocliente},
    {"text5", "Campo libero:", 30, &rec::pc::campolibero1},
};

// A value from and to; an end that is empty is open.
struct Range {
  Range(Form& form, std::string_view first, std::string_view last, std::string_view caption, const Mask& mask)
      : from(form, first, caption, mask), to(form, last, "a", mask) {}
  Field from, to;
};

class PartySelection : public Form {
 public:
  PartySelection(Session& session, std::string_view unit, const PartyKind& kind);
  Layout layout() const override;
  void load() override;

 private:
  std::vector<std::unique_ptr<Check>> makeTicks();
  std::vector<std::unique_ptr<Field>> makeTexts();
  std::unique_ptr<Choice> makeCombo(std::string_view name, std::string_view caption);
  std::unique_ptr<Range> makeRange(std::string_view first, std::string_view last, std::string_view caption,
                                   const Mask& mask);
  Layout tickLayout() const;
  Layout filterLayout() const;
  void tickAll();
  void print();
  std::vector<const PartyColumn*> ticked() const;
  PartyFilters filters() const;

  Session& session_;
  const PartyKind& kind_;
  std::span<const TextFilterField> fields_;
  std::vector<std::string> agents_;  // codes, by the items of `agente` but the first

  // In the order of entry; agente, listino, data and fatturato are of customers alone.
  Tabs schede{*this, "schede", kPages};
  std::vector<std::unique_ptr<Check>> ticks_ = makeTicks();  // null for a column that goes with another
  Button tutti{*this, "tutti", "&Tutti"};
  std::vector<std::unique_ptr<Field>> texts_ = makeTexts();  // of fields_ in turn
  std::unique_ptr<Choice> agente = makeCombo("agente", "Agente:"),
                          listino = makeCombo("listino", "Listino prezzi:");
  Range saldo{*this, "text7", "text8", "Saldo contabile:", Mask::amount()};
  std::unique_ptr<Range> data =
      makeRange("text9", "text10", "Data ultima fatt.:", Mask::pattern("__/__/____"));
  std::unique_ptr<Range> fatturato =
      makeRange("text11", "text12", "Fatturato " + session_.WorkYear + ":", Mask::amount());
  Check anteprima{*this, "anteprima", "Anteprima di &stampa"};
  Check foglio{*this, "foglio", "&Carica dati nel foglio elettronico"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

std::string titleOf(const PartyKind& kind) {
  return std::string("Stampa parametrica selettiva ") + (kind.isCustomer()          ? "clienti"
                                                         : kind.tipo == kAgent.tipo ? "agenti"
                                                                                    : "fornitori");
}

PartySelection::PartySelection(Session& session, std::string_view unit, const PartyKind& kind)
    : Form(session.desk(), unit, titleOf(kind)),
      session_(session),
      kind_(kind),
      fields_(kind.isCustomer() ? std::span<const TextFilterField>(kOfCustomers) : kOfSuppliers) {
  if (data) {
    optionalDate(session_, data->from);
    optionalDate(session_, data->to);
  }
  anteprima.set(true);
  anteprima.onChange = [this] { foglio.set(false); };
  foglio.onChange = [this] { anteprima.set(false); };
  tutti.onPress = [this] { tickAll(); };
  ok.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

std::vector<std::unique_ptr<Check>> PartySelection::makeTicks() {
  std::vector<std::unique_ptr<Check>> ticks;
  for (const PartyColumn& column : columnsOf(kind_)) {
    const std::string name = "Check" + std::to_string(ticks.size() + 1);
    ticks.push_back(column.tick.empty() ? nullptr : std::make_unique<Check>(*this, name, column.tick));
  }
  return ticks;
}

std::vector<std::unique_ptr<Field>> PartySelection::makeTexts() {
  std::vector<std::unique_ptr<Field>> texts;
  for (const TextFilterField& field : fields_)
    texts.push_back(std::make_unique<Field>(*this, field.name, field.caption, Mask::text(field.width)));
  return texts;
}

std::unique_ptr<Choice> PartySelection::makeCombo(std::string_view name, std::string_view caption) {
  if (!kind_.isCustomer()) return nullptr;
  return std::make_unique<Choice>(*this, name, caption, Choice::Look::combo);
}

std::unique_ptr<Range> PartySelection::makeRange(std::string_view first, std::string_view last,
                                                 std::string_view caption, const Mask& mask) {
  return kind_.isCustomer() ? std::make_unique<Range>(*this, first, last, caption, mask) : nullptr;
}

// The first entry of each list lets everyone pass.
void PartySelection::load() {
  if (!kind_.isCustomer()) return;
  std::vector<std::string> names{""}, lists{""};
  std::multimap<std::string, std::pair<std::string, std::string>> byName;
  for (const auto& [code, name] : agentNames(session_)) byName.insert({common::upper(name), {code, name}});
  for (const auto& [key, agent] : byName) {
    agents_.push_back(agent.first);
    names.push_back(agent.second);
  }
  for (int number = 0; number <= kPriceLists; ++number) lists.push_back(std::to_string(number));
  agente->setItems(std::move(names));
  listino->setItems(std::move(lists));
}

// --- how it lies ---

Layout PartySelection::layout() const {
  return column({tabs(schede, {tickLayout(), filterLayout()}), row({anteprima}), row({foglio}),
                 buttons({ok, annulla})});
}

Layout PartySelection::tickLayout() const {
  constexpr std::size_t across = 3;
  std::vector<const Check*> ticks;
  for (const auto& tick : ticks_)
    if (tick) ticks.push_back(tick.get());
  const std::size_t down = (ticks.size() + across - 1) / across;
  Layout blocks = side({});
  for (std::size_t first = 0; first < ticks.size(); first += down) {
    Layout block = column({});
    for (std::size_t i = first; i < std::min(first + down, ticks.size()); ++i)
      block.parts.push_back(row({*ticks[i]}));
    block.parts.push_back(space());
    blocks.parts.push_back(block);
  }
  return column({blocks, buttons({tutti})});
}

Layout PartySelection::filterLayout() const {
  Layout rows = column({});
  for (const auto& text : texts_) rows.parts.push_back(row({*text}));
  if (agente) rows.parts.push_back(row({*agente}));
  if (listino) rows.parts.push_back(row({*listino}));
  for (const Range* range : std::initializer_list<const Range*>{&saldo, data.get(), fatturato.get()})
    if (range) rows.parts.push_back(row({range->from, range->to}));
  return rows;
}

// --- what was asked for ---

// All of them; none when all are ticked already.
void PartySelection::tickAll() {
  bool all = true;
  for (const auto& tick : ticks_) all = all && (!tick || tick->on());
  for (const auto& tick : ticks_)
    if (tick) tick->set(!all);
}

std::vector<const PartyColumn*> PartySelection::ticked() const {
  std::vector<const PartyColumn*> columns;
  bool on = false;
  for (std::size_t i = 0; i < ticks_.size(); ++i) {
    if (ticks_[i]) on = ticks_[i]->on();
    if (on) columns.push_back(&columnsOf(kind_)[i]);
  }
  return columns;
}

std::optional<double> valueOf(const Field& field) {
  return field.empty() ? std::nullopt : std::optional(field.number());
}

PartyFilters PartySelection::filters() const {
  PartyFilters filters;
  for (std::size_t i = 0; i < texts_.size(); ++i)
    filters.texts.push_back(
        {std::string(fields_[i].caption), common::trim(texts_[i]->text()), fields_[i].field});
  const auto add = [&](const Range& range, double rec::pc::*field) {
    filters.ranges.push_back({range.from.caption(), valueOf(range.from), valueOf(range.to), field});
  };
  add(saldo, &rec::pc::saldo);
  if (!kind_.isCustomer()) return filters;
  add(*fatturato, &rec::pc::fatturato);
  filters.lastInvoiceFrom = keyOf(data->from);
  filters.lastInvoiceTo = keyOf(data->to);
  if (listino->index() > 0) filters.priceList = listino->index() - 1;
  if (agente->index() > 0) {
    filters.agent = agents_[static_cast<std::size_t>(agente->index()) - 1];
    filters.agentName = agente->text();
  }
  return filters;
}

void PartySelection::print() {
  const std::vector<const PartyColumn*> columns = ticked();
  if (columns.empty()) {
    desk().beep();
    desk().show(
        {"Non è stato selezionato nessun dato da stampare", std::string(kProduct), Ask::ok, Icon::warning});
    return;
  }
  const Busy busy(desk());
  if (foglio.on()) {
    if (auto sheet = listSheet(session_, kind_, columns, filters())) showSheet(session_, std::move(*sheet));
  } else if (auto report = listReport(session_, kind_, columns, filters(), printSetup(session_))) {
    showReport(desk(), std::move(report), anteprima.on());
  }
}

}  // namespace

std::unique_ptr<Form> makeSps(Session& session) {
  return std::make_unique<PartySelection>(session, "SPS", kCustomer);
}
std::unique_ptr<Form> makeSpsforn(Session& session) {
  return std::make_unique<PartySelection>(session, "SPSFORN", supplierOrAgent(session));
}

}  // namespace tarvex
