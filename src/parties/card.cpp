#include "parties/card.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "archives/cpag.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "parties/checks.h"
#include "session/checks.h"

namespace tarvex {

using namespace ui;

void chooseKeeping(Choice& choice, const std::string& text) {
  if (text.empty()) return choice.select(-1);
  if (choice.selectText(text)) return;
  choice.addItem(text);
  choice.select(static_cast<int>(choice.items().size()) - 1);
}

void setItemsKeepingChoice(Choice& choice, std::vector<std::string> items) {
  const std::string chosen = choice.text();
  choice.setItems(std::move(items));
  chooseKeeping(choice, chosen);
}

void turnToCapitals(Field& field) {
  field.onLeave = [&field] {
    field.setText(common::upper(field.text()));
    return Leave::go;
  };
}

void optionalDate(Session& session, Field& field) {
  field.onLeave = [&session, &field] {
    std::string date = field.text();
    return field.empty() || ValidateDate(session, date) ? Leave::go : Leave::stay;
  };
}

std::string keyOf(const Field& date) { return date.empty() ? std::string() : common::DateToKey(date.text()); }

std::string shownDate(std::string_view key) {
  constexpr std::size_t whole = 8;
  return key.size() == whole ? common::SlashDate(common::KeyToDate(key)) : std::string();
}

namespace {

constexpr double kLastCashDiscount = 20, kCashDiscountStep = 0.5;

std::string discountText(double discount) {
  return common::format(discount == std::trunc(discount) ? "#0" : "#0.0#", discount);
}

// The first entry is no discount; then 1, 1,5 and so on.
std::vector<std::string> cashDiscounts() {
  std::vector<std::string> items{"0"};
  for (double discount = 1; discount <= kLastCashDiscount; discount += kCashDiscountStep)
    items.push_back(discountText(discount));
  return items;
}

}  // namespace

// --- Anagrafica ---

IdentityPage::IdentityPage(Form& owner) : form(owner) {
  turnToCapitals(provincia);
  turnToCapitals(codicefiscale);
}

Layout IdentityPage::layout() const {
  return column({row({ragsoc}), row({ragsoc2}), row({indirizzo}), row({cap, citta, provincia}),
                 row({nazione}), row({partitaiva, partitaivaestero}), row({codicefiscale}),
                 row({telefono, fax}), row({email})});
}

void IdentityPage::store(rec::pc& party) const {
  party.ragsoc = common::trim(ragsoc.text());
  party.ragsoc2 = ragsoc2.text();
  party.indirizzo = indirizzo.text();
  party.cap = cap.text();
  party.citta = citta.text();
  party.provincia = provincia.text();
  party.nazione = nazione.text();
  party.partitaiva = partitaiva.text();
  party.partitaivaestero = partitaivaestero.text();
  party.codicefiscale = codicefiscale.text();
  party.telefono = telefono.text();
  party.fax = fax.text();
  party.email = email.text();
}

void IdentityPage::show(const rec::pc& party) {
  ragsoc.setText(party.ragsoc);
  ragsoc2.setText(party.ragsoc2);
  indirizzo.setText(party.indirizzo);
  cap.setText(party.cap);
  citta.setText(party.citta);
  provincia.setText(party.provincia);
  nazione.setText(party.nazione);
  partitaiva.setText(party.partitaiva);
  partitaivaestero.setText(party.partitaivaestero);
  codicefiscale.setText(party.codicefiscale);
  telefono.setText(party.telefono);
  fax.setText(party.fax);
  email.setText(party.email);
}

// --- Banca ---

Layout BankPage::layout() const { return column({row({banca}), row({abi, cab})}); }

void BankPage::store(rec::pc& party) const {
  party.banca = banca.text();
  party.abi = abi.text();
  party.cab = cab.text();
}

void BankPage::show(const rec::pc& party) {
  banca.setText(party.banca);
  abi.setText(party.abi);
  cab.setText(party.cab);
}

// --- Pagamento ---

PaymentPage::PaymentPage(Session& of, Form& owner, const PartyKind& kind) : session(of), form(owner) {
  if (kind.isCustomer())
    scontocassa = std::make_unique<Choice>(form, "scontocassa", "Sconto cassa", Choice::Look::combo);
  pagamento.onDoubleClick = [this] { load(); };
}

void PaymentPage::load() {
  if (scontocassa) setItemsKeepingChoice(*scontocassa, cashDiscounts());
  std::vector<std::string> conditions;
  OpenArchive<rec::cpag> cpag(session, 4010, 4011);
  if (!cpag->isOpen()) return;
  cpag->bof(0);
  store::Code result = cpag->next(0);
  for (; result == store::kOk; result = cpag->next(0)) conditions.push_back(cpag->B.descrizione);
  if (result != store::kNotFound) session.CheckArchiveResult(store::Operation::read, cpag->code, 4012);
  setItemsKeepingChoice(pagamento, std::move(conditions));
}

Layout PaymentPage::layout() const {
  return scontocassa ? column({row({pagamento}), row({*scontocassa})}) : column({row({pagamento})});
}

void PaymentPage::store(rec::pc& party) const {
  party.pagamento = pagamento.text();
  if (scontocassa) party.scontocassa = common::toNumber(scontocassa->text());
}

void PaymentPage::show(const rec::pc& party) {
  chooseKeeping(pagamento, party.pagamento);
  if (scontocassa)
    chooseKeeping(*scontocassa, party.scontocassa == 0 ? std::string() : discountText(party.scontocassa));
}

// --- Statistiche ---

StatisticsPage::StatisticsPage(Form& owner, const PartyKind& kind)
    : form(owner),
      tipocliente(form, "text20", kind.isCustomer() ? "Tipo cliente" : "Tipo fornitore", Mask::text(20)),
      zona(kind.isCustomer() ? std::make_unique<Field>(form, "text21", "Zona", Mask::text(10)) : nullptr),
      campolibero1(form, "text22", kind.isCustomer() ? "Campo libero 1" : "Campo libero", Mask::text(30)),
      campolibero2(kind.isCustomer()
                       ? std::make_unique<Field>(form, "text23", "Campo libero 2", Mask::text(30))
                       : nullptr) {}

Layout StatisticsPage::layout() const {
  if (!zona) return column({row({tipocliente}), row({campolibero1})});
  return column({row({tipocliente}), row({*zona}), row({campolibero1}), row({*campolibero2})});
}

void StatisticsPage::store(rec::pc& party) const {
  party.tipocliente = common::trim(tipocliente.text());
  party.campolibero1 = common::trim(campolibero1.text());
  if (zona) party.zona = common::trim(zona->text());
  if (campolibero2) party.campolibero2 = common::trim(campolibero2->text());
}

void StatisticsPage::show(const rec::pc& party) {
  tipocliente.setText(party.tipocliente);
  campolibero1.setText(party.campolibero1);
  if (zona) zona->setText(party.zona);
  if (campolibero2) campolibero2->setText(party.campolibero2);
}

// --- Destinazioni ---

DestinationsPage::DestinationsPage(Form& owner) : form(owner) {
  numero.pages = true;
  numero.onChange = [this] { showSlot(); };
  for (Field* field : {&nominativo, &indirizzo, &citta}) field->onChange = [this] { keep(); };
  showSlot();
}

void DestinationsPage::showSlot() {
  const auto slot = static_cast<std::size_t>(numero.value());
  contatore.setText(common::format("##", numero.value()));
  nominativo.setText(nominativi_[slot]);
  indirizzo.setText(indirizzi_[slot]);
  citta.setText(citta_[slot]);
}

void DestinationsPage::keep() {
  const auto slot = static_cast<std::size_t>(numero.value());
  nominativi_[slot] = nominativo.text();
  indirizzi_[slot] = indirizzo.text();
  citta_[slot] = citta.text();
}

Layout DestinationsPage::layout() const {
  return column({row({numero, contatore}), row({nominativo}), row({indirizzo}), row({citta})});
}

void DestinationsPage::store(rec::pc& party) const {
  party.destnominativo = nominativi_;
  party.destindirizzo = indirizzi_;
  party.destcitta = citta_;
}

void DestinationsPage::clear() {
  nominativi_ = indirizzi_ = citta_ = {};
  numero.setValue(1);
  showSlot();
}

void DestinationsPage::show(const rec::pc& party) {
  nominativi_ = party.destnominativo;
  indirizzi_ = party.destindirizzo;
  citta_ = party.destcitta;
  numero.setValue(1);
  showSlot();
}

// --- the card ---

namespace {

const Words kCustomerPages{"Anagrafica",  "Banca",       "Pagamento", "Iva",       "Sconti/Maggiorazioni",
                           "Statistiche", "Listino",     "Agente 1°", "Agente 2°", "Fatturazione",
                           "Note",        "Destinazioni"};
const Words kSupplierPages{"Anagrafica", "Banca",       "Pagamento", "Statistiche",
                           "Listino",    "Contabilità", "Note",      "Destinazioni"};

template <class Page, class... Arguments>
std::unique_ptr<Page> pageOf(bool wanted, Arguments&&... arguments) {
  return wanted ? std::make_unique<Page>(std::forward<Arguments>(arguments)...) : nullptr;
}

}  // namespace

PartyCard::PartyCard(Session& of, Form& owner, const PartyKind& party)
    : session(of),
      form(owner),
      kind(party),
      schede(form, "schede", kind.isCustomer() ? kCustomerPages : kSupplierPages),
      anagrafica(form),
      banca(form),
      pagamento(session, form, kind),
      iva(pageOf<VatPage>(kind.isCustomer(), session, form)),
      sconti(pageOf<DiscountPage>(kind.isCustomer(), form)),
      statistiche(form, kind),
      listino(form),
      agente1(pageOf<AgentPage>(kind.isCustomer(), session, form,
                                AgentPage::Names{"agente1", "text24", "tipoprovv1"})),
      agente2(pageOf<AgentPage>(kind.isCustomer(), session, form,
                                AgentPage::Names{"agente2", "text25", "tipoprovv2"})),
      fatturazione(pageOf<InvoicingPage>(kind.isCustomer(), session, form)),
      contabilita(pageOf<SupplierPage>(!kind.isCustomer(), session, form)),
      note(form, "note", "Note", Memo::Look::rich),
      destinazioni(form) {}

void PartyCard::load() {
  pagamento.load();
  if (iva) iva->load();
  listino.load();
  for (AgentPage* agent : {agente1.get(), agente2.get()})
    if (agent) agent->load();
}

Layout PartyCard::layout() const {
  if (!kind.isCustomer())
    return tabs(schede, {anagrafica.layout(), banca.layout(), pagamento.layout(), statistiche.layout(),
                         listino.layout(), contabilita->layout(), column({note}), destinazioni.layout()});
  return tabs(schede, {anagrafica.layout(), banca.layout(), pagamento.layout(), iva->layout(),
                       sconti->layout(), statistiche.layout(), listino.layout(), agente1->layout(),
                       agente2->layout(), fatturazione->layout(), column({note}), destinazioni.layout()});
}

bool PartyCard::store(rec::pc& party) const {
  anagrafica.store(party);
  banca.store(party);
  pagamento.store(party);
  if (iva) iva->store(party);
  if (sconti) sconti->store(party);
  statistiche.store(party);
  listino.store(party);
  if (fatturazione) fatturazione->store(party);
  if (contabilita) contabilita->store(party);
  party.saldo = party.saldoiniziale + party.dare - party.avere;
  party.note = note.text();
  destinazioni.store(party);
  return storeAgents(party);
}

bool PartyCard::storeAgents(rec::pc& party) const {
  if (!agente1) return true;
  party.provvigione1 = agente1->provvigione.number();
  party.tipoprovv1 = agente1->kind();
  party.provvigione2 = agente2->provvigione.number();
  party.tipoprovv2 = agente2->kind();
  return agente1->readCode(party.agente1, 4021) && agente2->readCode(party.agente2, 4022);
}

// `party` may be session.pc.B itself, which reading the agents overwrites: they come last.
void PartyCard::show(const rec::pc& party) {
  anagrafica.show(party);
  banca.show(party);
  pagamento.show(party);
  if (iva) iva->show(party);
  if (sconti) sconti->show(party);
  statistiche.show(party);
  listino.show(party);
  if (fatturazione) fatturazione->show(party);
  if (contabilita) contabilita->show(party);
  note.setText(party.note);
  knownVatNumber_ = party.partitaiva;
  destinazioni.show(party);
  if (agente1) showAgents(party);
}

void PartyCard::showAgents(const rec::pc& party) {
  const std::string second = party.agente2;
  const double commission = party.provvigione2;
  const std::int16_t type = party.tipoprovv2;
  agente1->show(party.agente1, party.provvigione1, party.tipoprovv1, 4023);
  agente2->show(second, commission, type, 4024);
}

std::vector<Control*> PartyCard::controls() const {
  const auto& all = form.controls();
  const auto first = std::find(all.begin(), all.end(), &schede);
  const auto last = std::find(all.begin(), all.end(), &destinazioni.citta);
  return {first + 1, last + 1};
}

void PartyCard::clear() {
  for (Control* control : controls()) {
    if (auto* field = dynamic_cast<Field*>(control)) field->clear();
    if (auto* check = dynamic_cast<Check*>(control)) check->set(false);
    if (auto* choice = dynamic_cast<Choice*>(control))
      choice->select(choice->look() == Choice::Look::options ? 0 : -1);
  }
  if (iva) iva->enableCodes();
  note.clear();
  knownVatNumber_.clear();
  destinazioni.clear();
}

// --- its checks ---

void PartyCard::checkWhileTyping() {
  anagrafica.partitaiva.onLeave = [this] {
    const std::string number = anagrafica.partitaiva.text();
    if (number.empty()) return Leave::go;
    if (number != knownVatNumber_) warnOfSameVatNumber(session, number, kind);
    return ValidateVatNumber(session, number) ? Leave::go : Leave::stay;
  };
  anagrafica.email.onLeave = [this] {
    const std::string& address = anagrafica.email.text();
    if (!address.empty() && !emailIsRight(address)) form.desk().warn("L'e-mail non è corretta");
    return Leave::go;
  };
}

bool PartyCard::hasName() {
  if (!name().empty()) return true;
  form.desk().refuse("Non è stata inserita la ragione sociale", anagrafica.ragsoc);
  return false;
}

bool PartyCard::hasVatCodes() {
  if (!iva) return true;
  if (iva->esente.on() && iva->codiceEsente.text().empty()) {
    form.desk().refuse("Non è stato inserito il codice di esenzione iva", iva->codiceEsente);
    return false;
  }
  if (iva->ridotta.on() && iva->codiceRidotta.text().empty()) {
    form.desk().refuse("Non è stato inserito il codice iva ridotta", iva->codiceRidotta);
    return false;
  }
  return true;
}

std::string PartyCard::name() const { return common::trim(anagrafica.ragsoc.text()); }

}  // namespace tarvex
