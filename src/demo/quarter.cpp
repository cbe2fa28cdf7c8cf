#include "demo/quarter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "common/amount.h"
#include "common/date.h"

namespace demo {
namespace {

constexpr int kPurchases = 72, kCreditNoteEvery = 18;
constexpr std::array<int, 3> kDays{31, 28, 31};  // of the months of the quarter

struct Cost {  // what is bought: in which register, on which voice, under which code, how often in a hundred
  int registro;
  std::string_view contropartita, codiva;
  double rate;
  int share;
};
constexpr std::array<Cost, 6> kCosts{{{1, "Merci c/acquisti", "22", 22, 52},
                                      {1, "Merci c/acquisti", "10", 10, 13},
                                      {1, "Trasporti su acquisti", "22", 22, 10},
                                      {2, "Telefono e internet", "22I", 22, 8},
                                      {2, "Carburanti", "22I", 22, 10},
                                      {2, "Energia e riscaldamento", "10", 10, 7}}};

const Cost& cost(Draw& draw) {
  int left = draw.below(100);
  for (const Cost& one : kCosts)
    if ((left -= one.share) < 0) return one;
  return kCosts.front();
}

std::string keyOf(int month, int day) { return common::zeroFill(month, 2) + common::zeroFill(day, 2); }

// A shop is shut on Sundays, and 4 January 2026 is one, and on the first holidays of the year.
bool isOpen(const std::string& date) {
  const bool sunday = common::daysBetween("04/01/2026", date) % 7 == 0;
  return !sunday && date.substr(0, 5) != "01/01" && date.substr(0, 5) != "06/01";
}

void addPurchases(Draw& draw, Company& company) {
  std::vector<std::string> keys;
  for (int i = 0; i < kPurchases; ++i) {
    const int month = i * 3 / kPurchases;
    keys.push_back(keyOf(month + 1, draw.between(1, kDays[static_cast<std::size_t>(month)])));
  }
  std::sort(keys.begin(), keys.end());
  for (const std::string& key : keys) {
    const Cost& bought = cost(draw);
    Invoice one;
    one.number = draw.between(1, 9'999);
    one.date = dateOf(company.year, key);
    one.subject = draw.from(company.suppliers).ragsoc;
    one.creditNote = (company.purchases.size() + 1) % kCreditNoteEvery == 0;
    one.description = one.creditNote ? "Nota credito su acquisti" : "Fattura d'acquisto";
    one.registro = bought.registro;
    for (int rows = one.creditNote ? 1 : draw.between(1, 2); rows > 0; --rows)
      one.rows.push_back({std::string(bought.contropartita), std::string(bought.codiva),
                          draw.between(2'500, 350'000) / 100.0, bought.rate});
    company.purchases.push_back(std::move(one));
  }
}

void addReceipts(Draw& draw, Company& company) {
  for (int month = 1; month <= 3; ++month)
    for (int day = 1; day <= kDays[static_cast<std::size_t>(month - 1)]; ++day) {
      const std::string date = dateOf(company.year, keyOf(month, day));
      if (!isOpen(date)) continue;
      Receipt one;
      one.number = static_cast<int>(company.receipts.size()) + 1;
      one.date = date;
      one.takings.push_back({"22", draw.between(8'000, 90'000) / 100.0, 22});
      if (draw.below(3) == 0) one.takings.push_back({"4", draw.between(500, 9'000) / 100.0, 4});
      company.receipts.push_back(std::move(one));
    }
}

// Gross pay, what the firm adds for the insurance, and what is kept back for insurance and taxes.
Movement wages(Draw& draw, const std::string& date) {
  const double gross = draw.between(900'000, 980'000) / 100.0;
  const double firms = common::roundBalance(gross * 0.29), own = common::roundBalance(gross * 0.0919);
  const double tax = common::roundBalance((gross - own) * 0.18);
  return {date,
          "Paghe del mese",
          "Paghe del mese",
          {{"", gross, 0},
           {"", firms, 0},
           {"", 0, common::roundBalance(firms + own)},
           {"", 0, tax},
           {"", 0, common::roundBalance(gross - own - tax)}}};
}

void addMovements(Draw& draw, Company& company) {
  for (int month = 1; month <= 3; ++month) {
    company.movements.push_back(wages(draw, dateOf(company.year, keyOf(month, 27))));
    const double paidIn = draw.between(5, 9) * 1'000;
    company.movements.push_back(
        {dateOf(company.year, keyOf(month, kDays[static_cast<std::size_t>(month - 1)])),
         "Versamento incassi del mese",
         "",
         {{"Banca c/c ordinario", paidIn, 0}, {"Cassa contanti", 0, paidIn}}});
  }
}

// Whoever pays at once and in one go: the bank collects the rest.
bool paysAtOnce(const std::vector<Customer>& cards, const std::string& name) {
  const auto card = std::ranges::find(cards, name, &Customer::ragsoc);
  return card != cards.end() && !card->pagamento.starts_with("Ri.Ba.");
}

// Every second invoice of the first two months, at the end of the month after; now and then less the cents,
// which are let go.
std::vector<Settled> settled(const std::vector<Invoice>& invoices, const std::vector<Customer>& cards,
                             const std::string& year) {
  std::vector<Settled> done;
  int met = 0;
  for (const Invoice& invoice : invoices) {
    const std::string month = invoice.date.substr(3, 2);
    if (month == "03" || invoice.creditNote || !paysAtOnce(cards, invoice.subject) || ++met % 2 == 0)
      continue;
    const double total = invoice.total();
    const double allowance = met % 5 == 0 ? common::roundBalance(total - std::floor(total)) : 0;
    done.push_back({(month == "01" ? "28/02/" : "31/03/") + year, invoice.subject, invoice.number,
                    invoice.date, common::roundBalance(total - allowance), allowance});
  }
  return done;
}

}  // namespace

double Takings::net() const { return common::netOf(gross, rate); }
double Takings::vat() const { return common::roundBalance(common::snapped(net() * rate / 100)); }

double Receipt::total() const {
  double sum = 0;
  for (const Takings& one : takings) sum += one.net() + one.vat();
  return common::roundBalance(sum);
}

void addChart(Company& company) {
  company.mastri = {{"Disponibilità liquide", "", "Patrimoniale"}};
  company.conti = {{"Cassa", "Disponibilità liquide"}, {"Banche e posta", "Disponibilità liquide"},
                   {"Debiti tributari", "Debiti"},     {"Debiti diversi", "Debiti"},
                   {"Ricavi delle vendite", "Ricavi"}, {"Acquisti di merci", "Costi"},
                   {"Costi per servizi", "Costi"},     {"Costi del personale", "Costi"}};
  company.sottoconti = {{"Cassa contanti", "Cassa"},
                        {"Banca c/c ordinario", "Banche e posta"},
                        {"Erario c/ritenute dipendenti", "Debiti tributari"},
                        {"Inps e Inail c/contributi", "Debiti diversi"},
                        {"Dipendenti c/retribuzioni", "Debiti diversi"},
                        {"Merci c/vendite", "Ricavi delle vendite"},
                        {"Prestazioni di servizi", "Ricavi delle vendite"},
                        {"Vendite al dettaglio", "Ricavi delle vendite"},
                        {"Merci c/acquisti", "Acquisti di merci"},
                        {"Trasporti su acquisti", "Costi per servizi"},
                        {"Telefono e internet", "Costi per servizi"},
                        {"Carburanti", "Costi per servizi"},
                        {"Energia e riscaldamento", "Costi per servizi"},
                        {"Salari e stipendi", "Costi del personale"},
                        {"Oneri sociali", "Costi del personale"}};
}

void addQuarter(Draw& draw, Company& company) {
  addPurchases(draw, company);
  addReceipts(draw, company);
  addMovements(draw, company);
  company.collections = settled(company.invoices, company.customers, company.year);
  company.payments = settled(company.purchases, company.suppliers, company.year);
}

}  // namespace demo
