// The figures of the first sale's road, through the real forms and without a screen: the start up to the
// choice of a company, the opening of a form, the posting of an invoice with two rows, the memory of a
// session.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "app/invoices.h"
#include "flushes.h"
#include "tools/scratch.h"

namespace {

constexpr const char* kToday = "15/01/2003";

const std::filesystem::path& books() {
  static const test::Scratch scratch;
  static const bool made = (test::makeBooks(scratch.path()), true);
  benchmark::DoNotOptimize(made);
  return scratch.path();
}

void startToTheChoiceOfACompany(benchmark::State& state) {
  books();
  for (auto _ : state) {
    test::Station station(books(), kToday);
    station.start(test::leave);
  }
}
BENCHMARK(startToTheChoiceOfACompany)->Unit(benchmark::kMillisecond);

void openTheInvoiceForm(benchmark::State& state) {
  test::Station station(books(), kToday);
  station.start(test::choose(test::kCompany, test::kYear));
  for (auto _ : state) {
    const auto form = station.session.make("mcfv");
    ui::User(*form).begin();
    benchmark::DoNotOptimize(form->arranged());
  }
}
BENCHMARK(openTheInvoiceForm)->Unit(benchmark::kMillisecond);

void postAnInvoiceOfTwoRows(benchmark::State& state) {
  static long number = 0;
  test::Station station(books(), kToday);
  station.start(test::choose(test::kCompany, test::kYear));
  station.session.open("mcfv");
  const long before = bench::flushes(), first = number;
  for (auto _ : state) {
    if (!test::postInvoice(station, *station.desk.forms().back(), ++number))
      return state.SkipWithError("an invoice was refused");
  }
  state.SetItemsProcessed(state.iterations());
  state.counters["flushes"] =
      static_cast<double>(bench::flushes() - before) / static_cast<double>(number - first);
}
BENCHMARK(postAnInvoiceOfTwoRows)->Unit(benchmark::kMillisecond)->Iterations(1000);

double residentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double total = 0, resident = 0;
  status >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void memoryWithACompanyOpen(benchmark::State& state) {
  for (auto _ : state) {
    test::Station station(books(), kToday);
    station.start(test::choose(test::kCompany, test::kYear));
    state.counters["resident_MB"] = residentMegabytes();
  }
}
BENCHMARK(memoryWithACompanyOpen)->Iterations(1);

}  // namespace
