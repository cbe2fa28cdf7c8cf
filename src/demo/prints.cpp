#include "demo/prints.h"

namespace demo {
namespace {

constexpr std::string_view kMonths[] = {"Gennaio", "Febbraio", "Marzo"};

class Prints {
 public:
  Prints(Script& script, const std::filesystem::path& folder) : script_(script), folder_(folder) {}

  // "&OK" of the screen in front, and where its print goes.
  void press() {
    script_.say("press", {"ok"});
    if (folder_.empty()) return;
    script_.say("report");
    script_.say("pdf 1", {(folder_ / pdfName(++count_)).string()});
  }

 private:
  Script& script_;
  const std::filesystem::path& folder_;
  std::size_t count_ = 0;
};

void printRegister(Script& script, std::string_view unit, std::string_view registro, Prints& prints) {
  script.say("open", {unit});
  script.say("check intestazione on");
  script.say("pick", {"registro", registro});
  for (const std::string_view month : kMonths) {
    script.say("pick", {"mese", month});
    prints.press();
  }
  script.say("close");
}

// Each month definitive, so that its credit goes on to the next.
void printSettlements(Script& script, Prints& prints) {
  script.say("open LIQIVA");
  script.say("check intestazione on");
  script.say("check definitiva on");
  for (const std::string_view month : kMonths) {
    script.say("pick", {"mese", month});
    prints.press();
  }
  script.say("close");
}

void printJournal(Script& script, const Company& company, Prints& prints) {
  script.say("open STGC");
  script.set("Alla data", "31/03/" + company.year);
  script.say("check", {"Intestazione azienda", "on"});
  script.say("check", {"Stampa definitiva", "on"});
  prints.press();
  script.say("close");
  script.say("open STMC");
  prints.press();
  script.say("close");
}

void printCards(Script& script, const Company& company, Prints& prints) {
  script.say("open STSCHED");
  script.say("pick", {"Tutti i sottoconti"});
  prints.press();
  script.say("close");
  script.say("open STEC");
  script.set("Cliente/Fornitore", company.customers.front().ragsoc);
  script.say("pick", {"Storico"});
  prints.press();
  script.say("close");
}

void printDueDates(Script& script, const Company& company, Prints& prints) {
  script.say("open STSCAD");
  script.set("Alla scadenza", "31/12/" + company.year);
  for (const std::string_view ledger :
       {"Clienti rimesse dirette", "Clienti ricevute bancarie", "Fornitori"}) {
    script.say("pick", {ledger});
    prints.press();
  }
  script.say("close");
}

void printBalances(Script& script, Prints& prints) {
  script.say("open BIL");
  prints.press();
  script.say("pick", {"Dai movimenti contabili"});
  prints.press();
  script.say("close");
}

void printLists(Script& script, Prints& prints) {
  for (const std::string_view unit : {"SPS", "SPSFORN"}) {
    script.say("open", {unit});
    for (const std::string_view column :
         {"Ragione sociale", "Città", "Telefono", "Condizioni pagamento", "Saldo contabile"})
      script.say("check", {column, "on"});
    prints.press();
    script.say("close");
  }
}

}  // namespace

std::string pdfName(std::size_t number) { return "stampa-" + std::to_string(number) + ".pdf"; }

void printBooks(Script& script, const Company& company, const std::filesystem::path& folder) {
  Prints prints(script, folder);
  printRegister(script, "STRIV", "1", prints);
  printRegister(script, "STRIA", "1", prints);
  printRegister(script, "STRIA", "2", prints);
  printRegister(script, "STRIC", "1", prints);
  printSettlements(script, prints);
  printJournal(script, company, prints);
  printCards(script, company, prints);
  printDueDates(script, company, prints);
  printBalances(script, prints);
  printLists(script, prints);
}

}  // namespace demo
