// The figures of the journal: what an entry of a hundred lines costs when it is registered, and how many
// invoices a year of them is registered in a second through the driver.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>

#include <ctime>
#include <sstream>
#include <string>

#include "app/invoices.h"
#include "driver/driver.h"
#include "flushes.h"
#include "tools/scratch.h"

namespace {

double processorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

void typeHundredLines(Hands& hands) {
  hands.set("text1", "15/01/2003");
  hands.set("text4", "Movimento di cento righe");
  for (int line = 1; line <= 100; ++line) {
    const std::string at = "(" + std::to_string(line) + ")";
    hands.set("conto" + at, line <= 50 ? "Merci c/vendite" : "BIANCHI SNC");
    hands.set((line <= 50 ? "dare" : "avere") + at, std::to_string((line - 1) % 50 + 1) + ",00");
  }
}

// The time told is the processor's, from the press on the button to the empty screen.
void postAHundredLines(benchmark::State& state) {
  const test::Scratch scratch;
  test::makeBooks(scratch.path());
  test::Station station(scratch.path());
  station.start(test::choose(test::kCompany, test::kYear));
  station.session.open("MCMG");
  Hands hands(*station.desk.forms().back());
  long flushed = 0;
  for (auto _ : state) {
    typeHundredLines(hands);
    const long before = bench::flushes();
    const double start = processorSeconds();
    hands.press("registra");
    state.SetIterationTime(processorSeconds() - start);
    flushed += bench::flushes() - before;
    if (!station.desk.boxes.empty() || !hands.text("text4").empty())
      return state.SkipWithError("an entry was refused");
  }
  state.counters["flushes"] = static_cast<double>(flushed) / static_cast<double>(state.iterations());
}
BENCHMARK(postAHundredLines)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);

constexpr int kInvoices = 20'000;

std::string yearOfInvoices() {
  std::ostringstream script;
  script << "start\npick Combo1 \"ROSSI SRL\"\npick Combo2 2003\npress ok\nopen mcfv\n";
  for (int number = 1; number <= kInvoices; ++number) {
    const int month = (number - 1) * 12 / kInvoices + 1;
    script << "set text1 28/" << (month < 10 ? "0" : "") << month << "/2003\nset text2 " << number
           << "\nset text5 \"BIANCHI SNC\"\nset text6 134,00\nset controp(1) \"Merci c/vendite\"\n"
              "set imponibile(1) 100,00\nset codiva(1) 22\nset controp(2) \"Prestazioni di servizi\"\n"
              "set imponibile(2) 10,91\nset codiva(2) 10\nset importoiva(2) 1,09\npress registra\n";
  }
  script << "close\nverify\nquit\n";
  return std::move(script).str();
}

void aYearOfInvoicesThroughTheDriver(benchmark::State& state) {
  const std::string script = yearOfInvoices();
  for (auto _ : state) {
    state.PauseTiming();
    const test::Scratch scratch;
    test::makeBooks(scratch.path());
    std::istringstream in(script);
    std::ostringstream out;
    state.ResumeTiming();
    driver::DriverOptions options;
    options.session = {scratch.path(), scratch.path(), TARVEX_SOURCE_DIR "/data",
                       common::Clock("31/12/2003", "12:00")};
    options.units = tarvex::units();
    driver::Driver(options, in, out).run();
    if (out.str().find("\"title\"") != std::string::npos ||
        out.str().find("\"violations\":[]") == std::string::npos)
      return state.SkipWithError("an invoice was refused");
  }
  state.SetItemsProcessed(state.iterations() * kInvoices);
}
BENCHMARK(aYearOfInvoicesThroughTheDriver)
    ->Unit(benchmark::kSecond)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime();

}  // namespace
