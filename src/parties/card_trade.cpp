// The pages of the card about prices, commissions, VAT and balances.
#include <algorithm>
#include <cmath>
#include <limits>

#include "common/text.h"
#include "parties/card.h"
#include "vat/vat_table.h"

namespace tarvex {

using namespace ui;

namespace {

constexpr int kPriceLists = 50;  // numbered from 0

std::int16_t truncated(const Field& field) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::clamp<double>(std::trunc(field.number()), Limits::min(), Limits::max()));
}

std::int16_t flag(const Check& check) { return check.on() ? 1 : 0; }

}  // namespace

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

void VatPage::show(const rec::pc& party) {
  esente.set(party.esenteiva == 1);
  sospensione.set(party.sospensioneiva == 1 && !esente.on());
  ridotta.set(party.ivaridotta == 1 && !esente.on() && !sospensione.on());
  enableCodes();
  if (esente.on()) chooseKeeping(codiceEsente, party.codiceiva);
  if (ridotta.on()) chooseKeeping(codiceRidotta, party.codiceiva);
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

void DiscountPage::show(const rec::pc& party) {
  sconto1.setNumber(party.sconto1);
  sconto2.setNumber(party.sconto2);
  sconto3.setNumber(party.sconto3);
  automatico.set(party.scontoauto == 1);
}

// --- Listino ---

void PriceListPage::load() {
  std::vector<std::string> numbers;
  for (int number = 0; number <= kPriceLists; ++number) numbers.push_back(std::to_string(number));
  setItemsKeepingChoice(listino, std::move(numbers));
}

Layout PriceListPage::layout() const { return column({row({listino})}); }

void PriceListPage::store(rec::pc& party) const {
  party.listino = static_cast<std::int16_t>(common::numberValue(listino.text()));
}

void PriceListPage::show(const rec::pc& party) { chooseKeeping(listino, std::to_string(party.listino)); }

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
  if (!code_.empty() && agente.text() == code_) {
    code = code_;
    return true;
  }
  const store::Code result = session.pc.search(1, agente.text());
  if (result == store::kOk) code = session.pc.primaryKey();
  if (result == store::kOk || result == store::kNotFound) return true;
  session.CheckArchiveResult(store::Operation::read, session.pc.code, position);
  return false;
}

// A code that is no agent's any longer is shown as it stands, and kept while nothing else is chosen.
void AgentPage::show(const std::string& code, double commission, std::int16_t kind, int position) {
  const bool found = !code.empty() && readVoiceByCode(session, code, position);
  code_ = found ? std::string() : code;
  chooseKeeping(agente, found ? session.pc.B.ragsoc : code);
  provvigione.setNumber(commission);
  tipoprovv.select(std::clamp<int>(kind, 0, 2));
}

// --- Fatturazione ---

InvoicingPage::InvoicingPage(Session& session, Form& owner) : form(owner) {
  optionalDate(session, dataultfatt);
}

Layout InvoicingPage::layout() const {
  return column({row({addebitobollo}), row({dataultfatt, fatturatoprec}), row({saldoiniziale, fido})});
}

void InvoicingPage::store(rec::pc& party) const {
  party.addebitobollo = flag(addebitobollo);
  // What documents write meanwhile stays, unless the user has typed something else.
  if (dataultfatt.text() != shownDate_) party.dataultfatt = keyOf(dataultfatt);
  if (fatturatoprec.text() != shownTurnover_) party.fatturatoprec = fatturatoprec.number();
  party.saldoiniziale = saldoiniziale.number();
  party.fido = fido.number();
}

void InvoicingPage::show(const rec::pc& party) {
  addebitobollo.set(party.addebitobollo == 1);
  dataultfatt.setText(shownDate(party.dataultfatt));
  fatturatoprec.setNumber(party.fatturatoprec);
  saldoiniziale.setNumber(party.saldoiniziale);
  fido.setNumber(party.fido);
  shownDate_ = dataultfatt.text();
  shownTurnover_ = fatturatoprec.text();
}


// --- Contabilità ---

SupplierPage::SupplierPage(Session& session, Form& owner) : form(owner) {
  optionalDate(session, datanascita);
  turnToCapitals(provnascita);
}

Layout SupplierPage::layout() const {
  return column(
      {group("Saldo", {row({saldoiniziale})}),
       group("Dati per ritenute d'acconto", {row({datanascita}), row({comunenascita, provnascita})})});
}

void SupplierPage::store(rec::pc& party) const {
  party.saldoiniziale = saldoiniziale.number();
  party.datanascita = keyOf(datanascita);
  party.provnascita = provnascita.text();
  party.comunenascita = comunenascita.text();
}

void SupplierPage::show(const rec::pc& party) {
  saldoiniziale.setNumber(party.saldoiniziale);
  datanascita.setText(shownDate(party.datanascita));
  provnascita.setText(party.provnascita);
  comunenascita.setText(party.comunenascita);
}

}  // namespace tarvex
