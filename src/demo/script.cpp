#include "demo/script.h"

#include <string_view>
#include <utility>

#include "common/amount.h"
#include "common/text.h"
#include "demo/commands.h"
#include "demo/prints.h"

namespace demo {
namespace {

void openCompany(Script& script, const Company& company) {
  script.say("start");
  script.say("press", {"Nuova azienda"});
  script.set("Ragione sociale", company.ragsoc);
  script.set("Indirizzo", company.indirizzo);
  script.set("Città", company.citta);
  script.set("Partita iva", company.partitaiva);
  script.set("Anno contabile", company.year);
  script.say("press", {"ok"});
}

// The table of a new installation serves as it is; one code more shows how it is kept.
void enterVatCode(Script& script) {
  script.say("open", {"rtiva"});
  script.set("codice(23)", "N7");
  script.set("aliquota(23)", "0");
  script.set("descrizione(23)", "Art. 7-bis non soggetto, beni all'estero");
  script.say("press", {"Registra"});
  script.say("close");
}

// The kind decides which parent is asked for; a mastro has none, and tells its nature.
void enterVoice(Script& script, std::string_view kind, std::string_view parents, const Voice& voice) {
  script.say("pick", {"tipo", kind});
  if (parents.empty())
    script.say("pick", {"natura", voice.natura});
  else
    script.say("pick", {parents, voice.parent});
  script.set("Descrizione", voice.description);
  script.say("press", {"Registra"});
}

void enterVoices(Script& script, const Company& company) {
  script.say("open", {"RPC"});
  for (const Voice& voice : company.mastri) enterVoice(script, "Mastro", "", voice);
  for (const Voice& voice : company.conti) enterVoice(script, "Conto", "Mastro associato", voice);
  for (const Voice& voice : company.sottoconti) enterVoice(script, "Sottoconto", "Conto associato", voice);
  script.say("close");
}

void setGiven(Script& script, std::string_view control, const std::string& text) {
  if (!text.empty()) script.set(control, text);
}

void pickGiven(Script& script, std::string_view control, const std::string& item) {
  if (!item.empty()) script.say("pick", {control, item});
}

void enterDestinations(Script& script, const std::vector<Destination>& destinations) {
  int slot = 0;
  for (const Destination& destination : destinations) {
    script.say("spin", {"Destinazione", std::to_string(++slot)});
    script.set("Nominativo", destination.nominativo);
    script.set("Destinazioni/Indirizzo", destination.indirizzo);
    script.set("Destinazioni/Città", destination.citta);
  }
}

void enterCard(Script& script, const Customer& card, std::string_view tipo) {
  script.set("Ragione sociale", card.ragsoc);
  script.set("Indirizzo", card.indirizzo);
  setGiven(script, "CAP", card.cap);
  script.set("Città", card.citta);
  setGiven(script, "Prov.", card.provincia);
  setGiven(script, "Partita iva", card.partitaiva);
  setGiven(script, "Tel.", card.telefono);
  setGiven(script, "Fax", card.fax);
  setGiven(script, "e-mail", card.email);
  setGiven(script, "Banca", card.banca);
  setGiven(script, "ABI", card.abi);
  setGiven(script, "CAB", card.cab);
  pickGiven(script, "pagamento", card.pagamento);
  setGiven(script, "text17", card.sconto);
  setGiven(script, tipo, card.tipo);
  setGiven(script, "Zona", card.zona);
  pickGiven(script, "listino", card.listino);
  pickGiven(script, "agente1", card.agente);
  setGiven(script, "Agente 1°/Provvigione", card.provvigione);
  if (!card.agente.empty()) script.say("pick", {"tipoprovv1", "Legate al cliente"});
  setGiven(script, "Fido", card.fido);
  setGiven(script, "note", card.note);
  enterDestinations(script, card.destinations);
  script.say("press", {"Registra"});
}

// Agents come first: the cards of customers name them.
void enterParties(Script& script, const Company& company) {
  script.say("open", {"RFORN", "agente"});
  for (const Customer& agent : company.agents) enterCard(script, agent, "Tipo fornitore");
  script.say("close");
  script.say("open", {"RCLIENTE"});
  for (const Customer& customer : company.customers) enterCard(script, customer, "Tipo cliente");
  script.say("close");
  script.say("open", {"RFORN"});
  for (const Customer& supplier : company.suppliers) enterCard(script, supplier, "Tipo fornitore");
  script.say("close");
}

std::string cell(std::string_view column, int row) {
  return std::string(column) + "(" + std::to_string(row) + ")";
}

void registerDocument(Script& script, const Invoice& invoice, bool purchase) {
  script.set("Data reg.", invoice.date);
  script.set("N. doc.", std::to_string(invoice.number));
  script.set("Registro", std::to_string(invoice.registro));
  if (purchase) script.say("focus", {"Protocollo"});  // it proposes the next one
  script.set(purchase ? "Fornitore" : "Cliente", invoice.subject);
  script.set("Descrizione", invoice.description);
  script.set("Importo fattura", common::toText(invoice.total()));
  int row = 0;
  for (const InvoiceRow& sold : invoice.rows) {
    script.set(cell("controp", ++row), sold.contropartita);
    script.set(cell("imponibile", row), common::toText(sold.imponibile));
    script.set(cell("codiva", row), sold.codiva);
  }
  script.say("press", {"Registra"});
}

// In the order of the dates; a credit note is entered on a form of its own.
void registerDocuments(Script& script, const std::vector<Invoice>& documents, bool purchase) {
  const std::string_view invoices = purchase ? "MCFA" : "mcfv", creditNotes = purchase ? "mcca" : "mccv";
  std::string_view open;
  for (const Invoice& document : documents) {
    const std::string_view unit = document.creditNote ? creditNotes : invoices;
    if (unit != open) {
      if (!open.empty()) script.say("close");
      script.say("open", {open = unit});
    }
    registerDocument(script, document, purchase);
  }
  script.say("close");
}

void registerReceipts(Script& script, const Company& company) {
  script.say("open", {"mcco"});
  for (const Receipt& receipt : company.receipts) {
    script.set("Data reg.", receipt.date);
    script.set("N. doc.", std::to_string(receipt.number));
    script.set("Sottoconto", "Cassa contanti");
    script.set("Descrizione", "Corrispettivi del giorno");
    script.set("Importo", common::toText(receipt.total()));
    int row = 0;
    for (const Takings& taken : receipt.takings) {
      script.set(cell("controp", ++row), "Vendite al dettaglio");
      script.set(cell("imponibile", row), common::toText(taken.gross));
      script.set(cell("codiva", row), taken.codiva);
      script.say("focus", {cell("importoiva", row)});
      script.say("key", {"F6"});  // parts the gross amount
    }
    script.say("press", {"Registra"});
  }
  script.say("close");
}

void fillLine(Script& script, const Movement::Line& line, int row) {
  if (!line.voice.empty()) script.set(cell("conto", row), line.voice);
  script.set(cell(line.dare != 0 ? "dare" : "avere", row),
             common::toText(line.dare != 0 ? line.dare : line.avere));
}

void registerMovements(Script& script, const Company& company) {
  script.say("open", {"regxx"});
  script.say("press", {"Schemi pronti"});
  script.say("close");
  for (const Movement& movement : company.movements) {
    script.say("open", {movement.scheme.empty() ? "MCMG" : "MCXX"});
    if (!movement.scheme.empty()) script.say("pick", {"Combo1", movement.scheme});
    script.set("Data reg.", movement.date);
    script.set("Descrizione", movement.description);
    int row = 0;
    for (const Movement::Line& line : movement.lines) fillLine(script, line, ++row);
    script.say("press", {"Registra"});
    script.say("close");
  }
}

void settle(Script& script, const std::vector<Settled>& invoices, bool payment) {
  script.say("open", {payment ? "MCPF" : "MCIF"});
  for (const Settled& one : invoices) {
    script.set("Data reg.", one.date);
    script.set("Descrizione",
               (payment ? "Pagamento fattura n. " : "Incasso fattura n. ") + std::to_string(one.invoice));
    script.set(payment ? "Fornitore" : "Cliente", one.subject);
    script.set(payment ? "Importo pagato" : "Importo incassato", common::toText(one.amount));
    script.set("Contropartita", "Banca c/c ordinario");
    script.set("nfatt(1)", std::to_string(one.invoice));
    script.set("dfatt(1)", one.invoiceDate);
    script.set("impfatt(1)", common::toText(one.amount));
    if (one.allowance != 0) script.set("abbuono(1)", common::toText(one.allowance));
    script.say("press", {"Registra"});
  }
  script.say("close");
}

// A second company to try things on: a copy of the first, beside it.
void copyCompany(Script& script, const Company& company) {
  script.say("open", {"DUPLICA"});
  script.set("Descrizione nuova azienda", company.ragsoc + " (prova)");
  script.say("answer yes");
  script.say("press", {"OK"});
}

}  // namespace

std::string scriptOf(const Company& company, const std::filesystem::path& prints) {
  Script script;
  openCompany(script, company);
  enterVatCode(script);
  enterVoices(script, company);
  enterParties(script, company);
  registerDocuments(script, company.invoices, false);
  registerDocuments(script, company.purchases, true);
  registerReceipts(script, company);
  registerMovements(script, company);
  settle(script, company.collections, false);
  settle(script, company.payments, true);
  printBooks(script, company, prints);
  copyCompany(script, company);
  script.say("verify");
  script.say("quit");
  return std::move(script).text();
}

}  // namespace demo
