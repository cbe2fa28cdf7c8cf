#include "demo/cards.h"

#include <array>
#include <string_view>
#include <utility>

#include "common/text.h"
#include "demo/draw.h"

namespace demo {
namespace {

struct Bank {
  std::string_view name, abi;
};
constexpr std::array<Bank, 5> kBanks{{{"Cassa Rurale di Romagna", "06010"},
                                      {"Credito del Rubicone", "08542"},
                                      {"Banca di Valbidente", "05387"},
                                      {"Credito Agrario Forlivese", "06120"},
                                      {"Banca del Lamone", "05748"}}};
constexpr std::array<std::string_view, 4> kCustomerKinds{"Ingrosso", "Dettaglio", "Artigiano",
                                                         "Impresa edile"};
constexpr std::array<std::string_view, 4> kSupplierKinds{"Merci", "Servizi", "Trasporti", "Imballaggi"};
constexpr std::array<std::string_view, 4> kZones{"Romagna", "Emilia", "Marche", "Veneto"};
constexpr std::array<std::string_view, 5> kNotes{
    "Consegnare solo al mattino, entro le 12.\nIl magazzino chiude il lunedì.",
    "Chiamare l'ufficio acquisti prima di ogni spedizione.", "Vuole il numero d'ordine su ogni fattura.",
    "Paga a fine mese; in agosto l'ufficio è chiuso.", "Cliente dal 1998. Rivedere il fido a giugno."};
constexpr std::array<std::string_view, 4> kPlaces{"Magazzino", "Deposito", "Cantiere", "Punto vendita"};
constexpr std::array<std::string_view, 5> kTowns{"FORLÌ", "CESENA", "RAVENNA", "IMOLA", "FAENZA"};
constexpr std::array<std::string_view, 4> kStreets{"Via Emilia", "Via Selice", "Via Ravegnana",
                                                   "Via Cervese"};
constexpr std::array<std::string_view, 4> kCredits{"5000", "10000", "25000", "50000"};
constexpr std::array<std::string_view, 3> kCommissions{"3", "5", "7,5"};

// "info@ferramentarossi.it" out of "FERRAMENTA ROSSI SRL".
std::string emailOf(const std::string& name) {
  std::string domain;
  int words = 0;
  for (const char c : common::lower(name)) {
    if (c == ' ' && ++words == 2) break;
    if (c >= 'a' && c <= 'z') domain += c;
  }
  return "info@" + domain + ".it";
}

void fillBoth(Draw& draw, Customer& card) {
  const Bank& bank = draw.from(kBanks);
  card.email = emailOf(card.ragsoc);
  card.fax = card.telefono.substr(0, card.telefono.size() - 1) + std::to_string(draw.below(10));
  card.banca = bank.name;
  card.abi = bank.abi;
  card.cab = common::zeroFill(draw.between(13'000, 13'999), 5);
  if (draw.below(3) > 0) card.note = draw.from(kNotes);
  for (int left = draw.below(4); left > 0; --left) {
    const std::string town(draw.from(kTowns));
    card.destinations.push_back(
        {std::string(draw.from(kPlaces)) + " di " + town,
         std::string(draw.from(kStreets)) + ", " + std::to_string(draw.between(1, 200)), town});
  }
}

void fillCustomer(Draw& draw, Customer& card, const std::vector<Customer>& agents) {
  fillBoth(draw, card);
  card.tipo = draw.from(kCustomerKinds);
  card.zona = draw.from(kZones);
  card.listino = std::to_string(draw.between(1, 3));
  card.fido = draw.from(kCredits);
  if (draw.below(3) == 0) card.sconto = "-" + std::to_string(5 * draw.between(1, 3));
  if (draw.below(2) == 0) return;
  card.agente = draw.from(agents).ragsoc;
  card.provvigione = draw.from(kCommissions);
}

}  // namespace

void fillCards(unsigned seed, Company& company) {
  Draw draw(seed + 1);
  for (const char* name : {"Baldini Ivano", "Fabbri Daniela", "Montanari Luca"}) {
    Customer agent{};
    agent.ragsoc = name;
    agent.indirizzo = std::string(draw.from(kStreets)) + ", " + std::to_string(draw.between(1, 200));
    agent.citta = draw.from(kTowns);
    agent.telefono = "0543" + std::to_string(draw.between(200'000, 799'999));
    company.agents.push_back(std::move(agent));
  }
  for (Customer& customer : company.customers) fillCustomer(draw, customer, company.agents);
  for (Customer& supplier : company.suppliers) {
    fillBoth(draw, supplier);
    supplier.tipo = draw.from(kSupplierKinds);
  }
}

}  // namespace demo
