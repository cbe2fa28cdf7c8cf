#include "parties/card.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "archives/cpag.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/mask.h"
#include "common/text.h"
#include "session/checks.h"
#include "vat/vat_table.h"

namespace tarvex {

using namespace ui;

namespace {

constexpr int kPriceLists = 50;  // numbered from 0
constexpr double kLastCashDiscount = 20, kCashDiscountStep = 0.5;

void setItemsKeepingChoice(Choice& choice, std::vector<std::string> items) {
  const std::string chosen = choice.text();
  choice.setItems(std::move(items));
  choice.selectText(chosen);
}

void turnToCapitals(Field& field) {
  field.onLeave = [&field] {
    field.setText(common::upper(field.text()));
    return Leave::go;
  };
}

// The first entry is no discount; then 1, 1,5 and so on.
double cashDiscountOf(int index) { return index <= 0 ? 0 : 1 + (index - 1) * kCashDiscountStep; }

std::vector<std::string> cashDiscounts() {
  std::vector<std::string> items{"0"};
  for (int index = 1; cashDiscountOf(index) <= kLastCashDiscount; ++index)
    items.push_back(common::format(index % 2 ? "#0" : "#0.0", cashDiscountOf(index)));
  return items;
}

std::int16_t truncated(const Field& field) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::clamp<double>(std::trunc(field.number()), Limits::min(), Limits::max()));
}

std::int16_t flag(const Check& check) { return check.on() ? 1 : 0; }

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

// --- Banca ---

Layout BankPage::layout() const { return column({row({banca}), row({abi, cab})}); }

void BankPage::store(rec::pc& party) const {
  party.banca = banca.text();
  party.abi = abi.text();
  party.cab = cab.text();
}

// --- Pagamento ---

PaymentPage::PaymentPage(Session& of, Form& owner) : session(of), form(owner) {
  scontocassa.setItems(cashDiscounts());
  pagamento.onDoubleClick = [this] { load(); };
}

void PaymentPage::load() {
  std::vector<std::string> conditions;
  OpenArchive<rec::cpag> cpag(session, 4010, 4011);
  if (!cpag->isOpen()) return;
  cpag->bof(0);
  store::Code result = cpag->next(0);
  for (; result == store::kOk; result = cpag->next(0)) conditions.push_back(cpag->B.descrizione);
  if (result != store::kNotFound) session.CheckArchiveResult(store::Operation::read, cpag->code, 4012);
  setItemsKeepingChoice(pagamento, std::move(conditions));
}

Layout PaymentPage::layout() const { return column({row({pagamento}), row({scontocassa})}); }

void PaymentPage::store(rec::pc& party) const {
  party.pagamento = pagamento.text();
  party.scontocassa = cashDiscountOf(scontocassa.index());
}

// --- Iva ---

VatPage::VatPage(Session& of, Form& owner) : session(of), form(owner) {
  esente.onChange = [this] { choose(esente); };
  sospensione.onChange = [this] { choose(sospensione); };
  ridotta.onChange = [this] { choose(ridotta); };
  enableCodes();
}

void VatPage::load() {
  const auto table = loadVatTable(session);
  if (!table) return;
  std::vector<std::string> exempt, taxed;
  for (const rec::civa& slot : *table)
    if (!slot.codice.empty()) (slot.aliquota == 0 ? exempt : taxed).push_back(slot.codice);
  setItemsKeepingChoice(codiceEsente, std::move(exempt));
  setItemsKeepingChoice(codiceRidotta, std::move(taxed));
}

void VatPage::choose(const Check& chosen) {
  if (chosen.on())
    for (Check* check : {&esente, &sospensione, &ridotta})
      if (check != &chosen) check->set(false);
  enableCodes();
}

void VatPage::enableCodes() {
  codiceEsente.setEnabled(esente.on());
  codiceRidotta.setEnabled(ridotta.on());
  if (!esente.on()) codiceEsente.select(-1);
  if (!ridotta.on()) codiceRidotta.select(-1);
}

Layout VatPage::layout() const {
  return column({row({esente, codiceEsente}), row({sospensione}), row({ridotta, codiceRidotta})});
}

void VatPage::store(rec::pc& party) const {
  party.esenteiva = flag(esente);
  party.sospensioneiva = flag(sospensione);
  party.ivaridotta = ridotta.on() ? 1.0 : 0.0;
  party.codiceiva = esente.on() ? codiceEsente.text() : codiceRidotta.text();
}

// --- Sconti/Maggiorazioni ---

Layout DiscountPage::layout() const {
  return column({row({sconto1}), row({sconto2}), row({sconto3}), row({automatico})});
}

void DiscountPage::store(rec::pc& party) const {
  party.sconto1 = truncated(sconto1);
  party.sconto2 = truncated(sconto2);
  party.sconto3 = truncated(sconto3);
  party.scontoauto = flag(automatico);
}

// --- Statistiche ---

Layout StatisticsPage::layout() const {
  return column({row({tipocliente}), row({zona}), row({campolibero1}), row({campolibero2})});
}

void StatisticsPage::store(rec::pc& party) const {
  party.tipocliente = common::trim(tipocliente.text());
  party.zona = common::trim(zona.text());
  party.campolibero1 = common::trim(campolibero1.text());
  party.campolibero2 = common::trim(campolibero2.text());
}

// --- Listino ---

PriceListPage::PriceListPage(Form& owner) : form(owner) {
  for (int number = 0; number <= kPriceLists; ++number) listino.addItem(std::to_string(number));
}

Layout PriceListPage::layout() const { return column({row({listino})}); }

void PriceListPage::store(rec::pc& party) const {
  party.listino = static_cast<std::int16_t>(std::max(listino.index(), 0));
}

// --- Agente ---

AgentPage::AgentPage(Session& of, Form& owner, const Names& names)
    : session(of),
      form(owner),
      agente(form, names.agent, "Agente", Choice::Look::combo),
      provvigione(form, names.commission, "Provvigione:", Mask::amount(2, 6)),
      tipoprovv(form, names.kind, {}, Choice::Look::options,
                {"Senza provvigioni", "Legate al cliente", "Legate all'art. di magazzino"}) {
  agente.onDoubleClick = [this] { load(); };
  tipoprovv.select(0);
}

void AgentPage::load() {
  std::vector<std::string> agents;
  auto& pc = session.pc;
  store::Code result = pc.search(7, "ag");
  for (; result == store::kOk && pc.B.tipo == "ag"; result = pc.next(7)) agents.push_back(pc.B.ragsoc);
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, pc.code, 4020);
  std::sort(agents.begin(), agents.end(),
            [](const std::string& a, const std::string& b) { return common::upper(a) < common::upper(b); });
  setItemsKeepingChoice(agente, std::move(agents));
}

Layout AgentPage::layout() const { return column({row({agente}), row({provvigione}), row({tipoprovv})}); }

bool AgentPage::readCode(std::string& code, int position) const {
  code.clear();
  if (agente.index() < 0) return true;
  const store::Code result = session.pc.search(1, agente.text());
  if (result == store::kOk) code = session.pc.primaryKey();
  if (result == store::kOk || result == store::kNotFound) return true;
  session.CheckArchiveResult(store::Operation::read, session.pc.code, position);
  return false;
}

// --- Fatturazione ---

InvoicingPage::InvoicingPage(Session& of, Form& owner) : session(of), form(owner) {
  dataultfatt.onLeave = [this] {
    std::string date = dataultfatt.text();
    return dataultfatt.empty() || ValidateDate(session, date) ? Leave::go : Leave::stay;
  };
}

Layout InvoicingPage::layout() const {
  return column({row({addebitobollo}), row({dataultfatt, fatturatoprec}), row({saldoiniziale, fido})});
}

void InvoicingPage::store(rec::pc& party) const {
  party.addebitobollo = flag(addebitobollo);
  party.dataultfatt = dataultfatt.empty() ? std::string() : common::DateToKey(dataultfatt.text());
  party.fatturatoprec = fatturatoprec.number();
  party.saldoiniziale = party.saldo = saldoiniziale.number();
  party.fido = fido.number();
}

// --- Destinazioni ---

DestinationsPage::DestinationsPage(Form& owner) : form(owner) {
  numero.onChange = [this] { show(); };
  for (Field* field : {&nominativo, &indirizzo, &citta}) field->onChange = [this] { keep(); };
  show();
}

void DestinationsPage::show() {
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
  show();
}

// --- the card ---

CustomerCard::CustomerCard(Session& session, Form& owner)
    : form(owner),
      schede(form, "schede",
             {"Anagrafica", "Banca", "Pagamento", "Iva", "Sconti/Maggiorazioni", "Statistiche", "Listino",
              "Agente 1°", "Agente 2°", "Fatturazione", "Note", "Destinazioni"}),
      anagrafica(form),
      banca(form),
      pagamento(session, form),
      iva(session, form),
      sconti(form),
      statistiche(form),
      listino(form),
      agente1(session, form, {"agente1", "text24", "tipoprovv1"}),
      agente2(session, form, {"agente2", "text25", "tipoprovv2"}),
      fatturazione(session, form),
      note(form, "note", "Note", Memo::Look::rich),
      destinazioni(form) {}

void CustomerCard::load() {
  pagamento.load();
  iva.load();
  agente1.load();
  agente2.load();
}

Layout CustomerCard::layout() const {
  return tabs(schede, {anagrafica.layout(), banca.layout(), pagamento.layout(), iva.layout(), sconti.layout(),
                       statistiche.layout(), listino.layout(), agente1.layout(), agente2.layout(),
                       fatturazione.layout(), column({note}), destinazioni.layout()});
}

bool CustomerCard::store(rec::pc& customer) const {
  anagrafica.store(customer);
  banca.store(customer);
  pagamento.store(customer);
  iva.store(customer);
  sconti.store(customer);
  statistiche.store(customer);
  listino.store(customer);
  customer.provvigione1 = agente1.provvigione.number();
  customer.tipoprovv1 = agente1.kind();
  customer.provvigione2 = agente2.provvigione.number();
  customer.tipoprovv2 = agente2.kind();
  fatturazione.store(customer);
  customer.note = note.text();
  destinazioni.store(customer);
  return agente1.readCode(customer.agente1, 4021) && agente2.readCode(customer.agente2, 4022);
}

void CustomerCard::clear() {
  for (Control* control : form.controls()) {
    if (auto* field = dynamic_cast<Field*>(control)) field->clear();
    if (auto* check = dynamic_cast<Check*>(control)) check->set(false);
    if (auto* choice = dynamic_cast<Choice*>(control))
      choice->select(choice->look() == Choice::Look::options ? 0 : -1);
  }
  iva.enableCodes();
  note.clear();
  destinazioni.clear();
}

}  // namespace tarvex
