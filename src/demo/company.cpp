#include "demo/company.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "common/amount.h"
#include "common/text.h"
#include "common/vat_number.h"
#include "demo/cards.h"
#include "demo/draw.h"
#include "demo/quarter.h"

namespace demo {
namespace {

constexpr int kCustomers = 40, kSuppliers = 12, kInvoices = 120, kCreditNoteEvery = 24;
constexpr std::string_view kYear = "2026";

constexpr std::array<std::string_view, 20> kSurnames{
    "ROSSI", "BIANCHI",  "FERRARI", "ESPOSITO", "COLOMBO", "RICCI",    "MARINO",
    "GRECO", "GALLO",    "CONTI",   "DE LUCA",  "COSTA",   "GIORDANO", "MANCINI",
    "RIZZO", "LOMBARDI", "MORETTI", "BARBIERI", "FONTANA", "SANTORO"};
constexpr std::array<std::string_view, 12> kTrades{
    "FERRAMENTA",  "MOBILI",      "LEGNAMI",     "IMPIANTI",    "CARTOLERIA", "EDILIZIA",
    "ARREDAMENTI", "UTENSILERIA", "COLORIFICIO", "ELETTRICITÀ", "SERRAMENTI", "GIARDINAGGIO"};
constexpr std::array<std::string_view, 6> kForms{"SRL", "SNC", "SAS", "SPA", "& FIGLI", "& C. SNC"};
constexpr std::array<std::string_view, 10> kStreets{
    "VIA ROMA",  "VIA GARIBALDI", "CORSO CAVOUR",       "VIA MAZZINI",    "PIAZZA VERDI",
    "VIA DANTE", "VIALE EUROPA",  "VIA DELL'INDUSTRIA", "VIA DEL LAVORO", "VIA VITTORIO VENETO"};

struct Town {
  std::string_view name, cap, province, prefix;
};
constexpr std::array<Town, 12> kTowns{{{"FORLÌ", "47121", "FC", "0543"},
                                       {"CESENA", "47521", "FC", "0547"},
                                       {"RAVENNA", "48121", "RA", "0544"},
                                       {"BOLOGNA", "40121", "BO", "051"},
                                       {"FAENZA", "48018", "RA", "0546"},
                                       {"RIMINI", "47921", "RN", "0541"},
                                       {"IMOLA", "40026", "BO", "0542"},
                                       {"MODENA", "41121", "MO", "059"},
                                       {"FERRARA", "44121", "FE", "0532"},
                                       {"PESARO", "61121", "PU", "0721"},
                                       {"PADOVA", "35121", "PD", "049"},
                                       {"FIRENZE", "50121", "FI", "055"}}};

constexpr std::array<std::string_view, 6> kPayments{"Bonifico 30 gg. d.f.",    "Bonifico 60 gg. f.m.",
                                                    "Ri.Ba. 30 gg. f.m.",      "Ri.Ba. 30/60 gg. f.m.",
                                                    "Rimessa diretta a vista", "Ri.Ba. 60/90 gg. f.m."};

struct Supply {  // what is sold: on which voice, under which code, how often in a hundred
  std::string_view contropartita, codiva;
  double rate;
  int share;
};
constexpr std::array<Supply, 7> kSupplies{{{"Merci c/vendite", "22", 22, 55},
                                           {"Prestazioni di servizi", "22", 22, 17},
                                           {"Merci c/vendite", "10", 10, 12},
                                           {"Vendite al dettaglio", "4", 4, 6},
                                           {"Merci c/vendite", "N41", 0, 4},
                                           {"Prestazioni di servizi", "E10", 0, 3},
                                           {"Merci c/vendite", "N8A", 0, 3}}};

std::string join(std::initializer_list<std::string_view> words) {
  std::string text;
  for (const std::string_view word : words) (text += text.empty() ? "" : " ") += word;
  return text;
}

std::string vatNumber(Draw& draw) {
  const std::string ten =
      common::zeroFill(draw.between(1'000'000, 9'999'999), 7) + common::zeroFill(draw.between(1, 100), 3);
  for (char check = '0'; check <= '9'; ++check)
    if (common::vatNumberIsRight(ten + check)) return ten + check;
  return {};
}

Customer customer(Draw& draw, std::set<std::string>& names) {
  Customer card;
  do card.ragsoc = join({draw.from(kTrades), draw.from(kSurnames), draw.from(kForms)});
  while (common::length(card.ragsoc) > 30 || !names.insert(card.ragsoc).second);
  const Town& town = draw.from(kTowns);
  card.indirizzo = std::string(draw.from(kStreets)) + ", " + std::to_string(draw.between(1, 180));
  card.cap = town.cap;
  card.citta = town.name;
  card.provincia = town.province;
  card.telefono = std::string(town.prefix) + std::to_string(draw.between(200'000, 799'999));
  card.partitaiva = vatNumber(draw);
  card.pagamento = draw.from(kPayments);
  return card;
}

const Supply& supply(Draw& draw) {
  int left = draw.below(100);
  for (const Supply& one : kSupplies)
    if ((left -= one.share) < 0) return one;
  return kSupplies.front();
}

Invoice invoice(Draw& draw, int number, const std::string& date, const std::vector<Customer>& customers) {
  Invoice one;
  one.number = number;
  one.date = date;
  // The first customers buy more often than the last ones.
  const int last = kCustomers - 1;
  one.subject =
      customers[static_cast<std::size_t>(std::min(draw.between(0, last), draw.between(0, last)))].ragsoc;
  one.creditNote = number % kCreditNoteEvery == 0;
  one.description = (one.creditNote ? "Nota credito n. " : "Fattura n. ") + std::to_string(number);
  for (int rows = one.creditNote ? 1 : draw.between(1, 4); rows > 0; --rows) {
    const Supply& sold = supply(draw);
    one.rows.push_back({std::string(sold.contropartita), std::string(sold.codiva),
                        draw.between(1'500, 480'000) / 100.0, sold.rate});
  }
  return one;
}

}  // namespace

double Invoice::total() const {
  double sum = 0;
  for (const InvoiceRow& row : rows) sum += row.imponibile + common::vatOf(row.imponibile, row.rate);
  return common::roundBalance(sum);
}

Company drawCompany(unsigned seed) {
  Draw draw(seed);
  Company company;
  company.ragsoc = "ROMAGNA FORNITURE SRL";
  company.indirizzo = "VIA DELL'INDUSTRIA, 14";
  company.citta = "47122 FORLÌ (FC)";
  company.partitaiva = vatNumber(draw);
  company.year = kYear;
  addChart(company);
  std::set<std::string> names;
  for (int i = 0; i < kCustomers; ++i) company.customers.push_back(customer(draw, names));
  for (int i = 0; i < kSuppliers; ++i) company.suppliers.push_back(customer(draw, names));
  constexpr std::array<int, 3> days{31, 28, 31};
  std::vector<std::string> keys;
  for (int i = 0; i < kInvoices; ++i) {
    const int month = i * 3 / kInvoices;
    keys.push_back(common::zeroFill(month + 1, 2) +
                   common::zeroFill(draw.between(1, days[static_cast<std::size_t>(month)]), 2));
  }
  std::sort(keys.begin(), keys.end());
  for (int i = 0; i < kInvoices; ++i) {
    const std::string& key = keys[static_cast<std::size_t>(i)];
    company.invoices.push_back(invoice(draw, i + 1, dateOf(company.year, key), company.customers));
  }
  addQuarter(draw, company);
  fillCards(seed, company);
  return company;
}

}  // namespace demo
