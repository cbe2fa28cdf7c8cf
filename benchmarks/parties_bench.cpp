// The figures of customers and suppliers over a company of 50,000 customers: the selective list with all its
// columns and with the usual few, a card opened with its documents and open items, one opened to be changed.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "archives/fa.h"
#include "archives/sd.h"
#include "archives/xx.h"
#include "chart/voice.h"
#include "common/text.h"
#include "session/station.h"
#include "store/group.h"
#include "tools/scratch.h"
#include "ui/sheet.h"

using namespace tarvex;

namespace {

constexpr int kCustomers = 50'000, kFirst = 40'000;
const std::string kMiddle = "Cliente 25000 di prova";

// Codes have five digits, so that the customers take those from 40000 on and the letters behind them.
std::string codeOf(int number) {
  constexpr int room = 100'000 - kFirst;
  return number < room ? common::zeroFill(kFirst + number, 5) : "A" + common::zeroFill(number - room, 4);
}

void addCustomer(Session& session, int number) {
  rec::pc& customer = session.pc.A;
  customer = {};
  customer.ragsoc = "Cliente " + common::zeroFill(number, 5) + " di prova";
  customer.indirizzo = "Via Giuseppe Garibaldi, " + std::to_string(number % 300);
  customer.cap = "40121";
  customer.citta = number % 3 ? "Bologna" : "Forlì";
  customer.provincia = "BO";
  customer.partitaiva = common::zeroFill(number, 11);
  customer.telefono = "051 1234567";
  customer.pagamento = "Rimessa diretta 30 gg.";
  customer.note = "Chiamare <b>prima</b> delle consegne.";
  customer.tipo = "c";
  customer.natura = "p";
  customer.mastro = "00001";
  customer.conto = kCustomersConto;
  customer.dataultfatt = "20030110";
  customer.saldo = customer.dare = number;
  for (std::size_t slot = 1; slot <= 3; ++slot) customer.destnominativo[slot] = "Magazzino";
  setCode(customer, codeOf(number));
  setGroupKeys(customer);
  session.pc.put(codeOf(number), store::Put::write);
}

template <class R, class Fill>
void addRecords(Session& session, int count, const Fill& fill) {
  OpenArchive<R> archive(session, 1, 2);
  for (int number = 1; number <= count; ++number) {
    archive->A = {};
    fill(archive->A, number);
    archive->put(common::zeroFill(number, 8), store::Put::add);
  }
}

// What a good customer has at the end of a year: 200 documents of ten rows, 60 open items, 200 invoices.
void addHistory(Session& session, const std::string& code) {
  addRecords<rec::xx>(session, 200, [&](rec::xx& document, int number) {
    document.cliente = code;
    document.numbv = document.numfv = common::zeroFill(number, 6);
    document.databv = document.datafv = "20030110";
    for (std::size_t row = 1; row <= 10; ++row) {
      document.codice[row] = "ART-" + std::to_string(row);
      document.descrizione[row] = "Articolo di prova";
    }
  });
  addRecords<rec::sd>(session, 60, [&](rec::sd& due, int number) {
    due.numero = common::zeroFill(number, 5);
    due.datafatt = "20030110";
    due.conto = code;
    due.importo = number;
    due.scadenza = "20030430";
    due.chiaveconto = code + due.scadenza;
  });
  addRecords<rec::fa>(session, 200, [&](rec::fa& invoice, int number) {
    invoice.cliente = code;
    invoice.data = "2003" + common::zeroFill(number % 12 + 1, 2) + "10";
    invoice.importo = number;
  });
}

struct Company {
  Company() {
    station.start(test::found(station.desk, "ROSSI SRL", "2003"));
    for (int number = 0; number < kCustomers;) {
      store::Group group(station.session.store, station.session.groupLog(), archives::Layout<rec::pc>::code,
                         1);
      for (int end = std::min(number + 1000, kCustomers); number < end; ++number)
        addCustomer(station.session, number);
      group.commit();
    }
    addHistory(station.session, codeOf(25'000));
  }
  test::Scratch scratch;
  test::Station station{scratch.path()};
};

Company& company() {
  static Company made;
  return made;
}

void printTheList(benchmark::State& state, bool allColumns) {
  test::Station& station = company().station;
  std::size_t pages = 0;
  for (auto _ : state) {
    const auto form = station.session.make("SPS");
    Hands hands(*form);
    hands.user.begin();
    if (allColumns) hands.press("tutti");
    for (const char* column :
         {"Ragione sociale", "Indirizzo", "CAP", "Città", "Partita iva", "Saldo contabile"})
      hands.check(column, true);
    hands.press("ok");
    if (station.desk.previews.size() != 1) return state.SkipWithError("nothing was printed");
    pages = station.desk.previews.back()->pages().size();
    station.desk.previews.clear();
  }
  state.counters["pages"] = static_cast<double>(pages);
}

void printFiftyThousandCustomers(benchmark::State& state) { printTheList(state, false); }
BENCHMARK(printFiftyThousandCustomers)->Unit(benchmark::kMillisecond);
void printThemWithAllColumns(benchmark::State& state) { printTheList(state, true); }
BENCHMARK(printThemWithAllColumns)->Unit(benchmark::kMillisecond);

void loadThemIntoTheSpreadsheet(benchmark::State& state) {
  test::Station& station = company().station;
  for (auto _ : state) {
    const auto form = station.session.make("SPS");
    Hands hands(*form);
    hands.user.begin();
    hands.press("tutti");
    hands.check("foglio", true);
    hands.press("ok");
    if (station.session.LastSheet->rows.size() != kCustomers + 1)
      return state.SkipWithError("rows are missing");
  }
}
BENCHMARK(loadThemIntoTheSpreadsheet)->Unit(benchmark::kMillisecond);

// From the menu entry to the card filled.
void openCard(benchmark::State& state, const char* unit, const char* shown) {
  test::Station& station = company().station;
  for (auto _ : state) {
    const auto form = station.session.make(unit);
    Hands hands(*form);
    hands.user.begin();
    hands.set("ricerca", kMiddle);
    hands.user.next();
    if (hands.text(shown).empty()) return state.SkipWithError("no card was shown");
  }
}
void openACard(benchmark::State& state) { openCard(state, "VISCLI", "indirizzo"); }
BENCHMARK(openACard)->Unit(benchmark::kMillisecond);
void openACardToChangeIt(benchmark::State& state) { openCard(state, "VARCLI", "text3"); }
BENCHMARK(openACardToChangeIt)->Unit(benchmark::kMillisecond);

void loadTheTurnover(benchmark::State& state) {
  test::Station& station = company().station;
  const auto form = station.session.make("VISCLI");
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", kMiddle);
  for (auto _ : state) hands.press("carica");
}
BENCHMARK(loadTheTurnover)->Unit(benchmark::kMillisecond);

}  // namespace
