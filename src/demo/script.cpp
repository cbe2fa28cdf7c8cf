#include "demo/script.h"

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string_view>

#include "common/amount.h"

namespace demo {
namespace {

class Script {
 public:
  // A command with its words, each quoted so that blanks and accents pass.
  void say(std::string_view command, std::initializer_list<std::string_view> words = {}) {
    text_ += command;
    for (const std::string_view word : words) text_ += " " + nlohmann::json(word).dump();
    text_ += '\n';
  }
  void set(std::string_view control, std::string_view text) { say("set", {control, text}); }
  std::string text() && { return std::move(text_); }

 private:
  std::string text_;
};

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

void enterVoice(Script& script, std::string_view kind, std::string_view parents, const Voice& voice) {
  script.say("pick", {"tipo", kind});
  script.say("pick", {parents, voice.parent});
  script.set("Descrizione", voice.description);
  script.say("press", {"Registra"});
}

void enterVoices(Script& script, const Company& company) {
  script.say("open", {"RPC"});
  for (const Voice& voice : company.conti) enterVoice(script, "Conto", "Mastro associato", voice);
  for (const Voice& voice : company.sottoconti) enterVoice(script, "Sottoconto", "Conto associato", voice);
  script.say("close");
}

void enterCustomers(Script& script, const Company& company) {
  script.say("open", {"RCLIENTE"});
  for (const Customer& customer : company.customers) {
    script.set("Ragione sociale", customer.ragsoc);
    script.set("Indirizzo", customer.indirizzo);
    script.set("CAP", customer.cap);
    script.set("Città", customer.citta);
    script.set("Prov.", customer.provincia);
    script.set("Partita iva", customer.partitaiva);
    script.set("Tel.", customer.telefono);
    script.say("pick", {"pagamento", customer.pagamento});
    script.say("press", {"Registra"});
  }
  script.say("close");
}

void registerInvoice(Script& script, const Invoice& invoice) {
  script.set("Data reg.", invoice.date);
  script.set("N. doc.", std::to_string(invoice.number));
  script.set("Cliente", invoice.customer);
  script.set("Descrizione", invoice.description);
  script.set("Importo fattura", common::toText(invoice.total()));
  int row = 0;
  for (const InvoiceRow& sold : invoice.rows) {
    const std::string cell = "(" + std::to_string(++row) + ")";
    script.set("controp" + cell, sold.contropartita);
    script.set("imponibile" + cell, common::toText(sold.imponibile));
    script.set("codiva" + cell, sold.codiva);
  }
  script.say("press", {"Registra"});
}

void printRegisters(Script& script) {
  script.say("open", {"STRIV"});
  script.say("check intestazione on");
  for (const std::string_view month : {"Gennaio", "Febbraio", "Marzo"}) {
    script.say("pick", {"mese", month});
    script.say("press", {"ok"});
    script.say("report");
  }
  script.say("close");
}

}  // namespace

std::string scriptOf(const Company& company) {
  Script script;
  openCompany(script, company);
  enterVatCode(script);
  enterVoices(script, company);
  enterCustomers(script, company);
  script.say("open", {"mcfv"});
  for (const Invoice& invoice : company.invoices) registerInvoice(script, invoice);
  script.say("close");
  printRegisters(script);
  script.say("verify");
  script.say("quit");
  return std::move(script).text();
}

}  // namespace demo
