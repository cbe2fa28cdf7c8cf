// The figures of choosing: the search window over 50,000 customers, key by key, and the choice among a
// hundred companies.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>

#include "app/invoices.h"
#include "chart/account_field.h"
#include "common/text.h"
#include "store/group.h"
#include "tools/scratch.h"

namespace {

using namespace tarvex;
using Clock = std::chrono::steady_clock;

constexpr int kCustomers = 50'000, kCompanies = 100;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void addCustomers(Session& session) {
  constexpr int atOnce = 5'000;
  for (int first = 0; first < kCustomers; first += atOnce) {
    store::Group group(session.store, session.groupLog(), session.pc.code, 1);
    for (int i = first; i < first + atOnce; ++i) {
      rec::pc& voice = session.pc.A = {};
      const std::string code = common::zeroFill(1000 + i, 5);
      voice.ragsoc = std::string(1, static_cast<char>('A' + i * 7 % 26)) + "ZIENDA " +
                     common::zeroFill(i * 7919 % kCustomers, 5);
      voice.indirizzo = "VIA GARIBALDI, 12";
      voice.citta = "MODENA";
      voice.tipo = "c";
      voice.natura = "p";
      voice.mastro = "00001";
      voice.conto = "00005";
      voice.codice = voice.mastro + voice.conto + code;
      voice.chiavetipo = "c" + voice.ragsoc;
      voice.chiavegruppo = "cf" + voice.ragsoc;
      session.pc.put(code, store::Put::add);
    }
    if (!group.commit()) std::abort();
  }
}

test::Station& customers() {
  static const test::Scratch scratch;
  static test::Station station(scratch.path());
  static const bool made = [] {
    station.start(test::found(station.desk, test::kCompany, test::kYear));
    addCustomers(station.session);
    return true;
  }();
  benchmark::DoNotOptimize(made);
  return station;
}

void theSearchWindowOpens(benchmark::State& state) {
  test::Station& station = customers();
  for (auto _ : state) {
    const auto start = Clock::now();
    station.desk.modal["ricerca1"] = [&](ui::Form& form) {
      state.SetIterationTime(secondsSince(start));
      form.close();
    };
    searchAccount(station.session, SearchList::customers, "");
  }
}
BENCHMARK(theSearchWindowOpens)->Unit(benchmark::kMillisecond)->UseManualTime();

void aKeyInTheSearchWindow(benchmark::State& state) {
  test::Station& station = customers();
  const std::string name = "AZIENDA 00";
  for (auto _ : state) {
    station.desk.modal["ricerca1"] = [&](ui::Form& form) {
      Hands hands(form);
      const auto start = Clock::now();
      for (const char key : name) hands.user.type(std::string(1, key));
      state.SetIterationTime(secondsSince(start) / static_cast<double>(name.size()));
      form.close();
    };
    searchAccount(station.session, SearchList::customers, "");
  }
}
BENCHMARK(aKeyInTheSearchWindow)->Unit(benchmark::kMillisecond)->UseManualTime();

void theChoiceAmongAHundredCompanies(benchmark::State& state) {
  static const test::Scratch scratch;
  static const bool made = [] {
    test::Station station(scratch.path());
    station.start(test::found(station.desk, test::kCompany, test::kYear));
    for (int i = 1; i < kCompanies; ++i) {
      station.desk.modal["APRIAZ"] = [i](ui::Form& form) {
        test::fillCompany(form, "AZIENDA " + std::to_string(i), test::kYear);
        if (form.isOpen()) form.close();  // the program takes no more
      };
      station.session.run("APRIAZ");
    }
    station.frame.end();
    return true;
  }();
  benchmark::DoNotOptimize(made);
  for (auto _ : state) {
    state.PauseTiming();
    test::Station station(scratch.path());
    station.start([&](ui::Form& form) {
      form.close();
      state.ResumeTiming();
      const auto choice = station.session.make("SCELTA");
      ui::User(*choice).begin();
      state.PauseTiming();
      state.counters["companies"] =
          static_cast<double>(Hands(*choice).at<ui::Choice>("Combo1").items().size());
      choice->close();
    });
    state.ResumeTiming();
  }
}
BENCHMARK(theChoiceAmongAHundredCompanies)->Unit(benchmark::kMillisecond);

}  // namespace
