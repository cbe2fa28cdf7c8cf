// What it takes to prove, rebuild and repair the journal of a year of a million rows, to make its
// progressives anew, to verify the books, and to be given the lock of a station that has died.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "app/invoices.h"
#include "app/verify.h"
#include "journal_year.h"
#include "tools/child.h"
#include "tools/scratch.h"

namespace {

using namespace tarvex;
using namespace bench;

constexpr int kRows = 1'000'000;

void makeProgressives(Session& session) {
  const auto form = session.make("RICO");
  for (ui::Control* control : form->controls())
    if (control->name() == "ok") static_cast<ui::Button*>(control)->onPress();
}

Session& books() {
  static const test::Scratch scratch;
  static test::Station station(scratch.path());
  static const bool made = [] {
    station.start(test::found(station.desk, test::kCompany, test::kYear));
    addVoices(station.session);
    addJournal(station.session, kRows);
    makeProgressives(station.session);
    station.session.store.settle();
    return true;
  }();
  benchmark::DoNotOptimize(made);
  return station.session;
}

void mend(benchmark::State& state, store::Code (*call)(store::RecordStore&, const std::string&)) {
  Session& session = books();
  for (auto _ : state)
    if (call(session.store, session.stem("mc")) != store::kOk) return state.SkipWithError("not sound");
}

void prove(benchmark::State& state) {
  mend(state, [](store::RecordStore& store, const std::string& stem) { return store.VTVal(stem); });
}
BENCHMARK(prove)->Name("a_million_rows/VTVal")->Unit(benchmark::kSecond)->Iterations(3);

void rebuild(benchmark::State& state) {
  mend(state, [](store::RecordStore& store, const std::string& stem) { return store.VTRebuild(stem); });
}
BENCHMARK(rebuild)->Name("a_million_rows/VTRebuild")->Unit(benchmark::kSecond)->Iterations(3);

void repair(benchmark::State& state) {
  mend(state, [](store::RecordStore& store, const std::string& stem) {
    std::string report;
    const store::Code code = store.VTRepair(stem, report);
    return report == "Grp=" + std::to_string(kRows) + "\n" ? code : store::kDisk;
  });
}
BENCHMARK(repair)->Name("a_million_rows/VTRepair")->Unit(benchmark::kSecond)->Iterations(3);

void progressives(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) makeProgressives(session);
}
BENCHMARK(progressives)->Name("a_million_rows/RICO")->Unit(benchmark::kSecond)->Iterations(1);

void verifyAll(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state)
    for (const Violation& violation : verify(session))
      if (!violation.notice) return state.SkipWithError("the books do not agree");
}
BENCHMARK(verifyAll)->Name("a_million_rows/verify")->Unit(benchmark::kSecond)->Iterations(3);

// From the moment in which the station that holds the lock is killed.
void lockOfADeadStation(benchmark::State& state) {
  const test::Scratch scratch;
  const std::string stem = scratch / "2003ABpr";
  store::StoreOptions options;
  store::RecordStore own(options);
  store::Handle handle = 0;
  if (own.VmxCreate(stem, 10, "&,$") != store::kOk) std::abort();
  double worst = 0;
  for (auto _ : state) {
    test::HoldingChild dead([&] {
      static std::unique_ptr<store::RecordStore> his;
      store::Handle held = 0;
      his = std::make_unique<store::RecordStore>(options);
      return his->VmxOpen(stem, held) == store::kOk && his->VmxLock(held, "mc") == store::kOk;
    });
    if (own.VmxOpen(stem, handle) != store::kOk || !dead.ready() ||
        own.VmxLock(handle, "mc") != store::kNotFound)
      return state.SkipWithError("the lock was not held");
    const auto start = std::chrono::steady_clock::now();
    dead.kill();
    own.spinLock(handle, "mc");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(took.count());
    worst = std::max(worst, took.count() * 1000);
    own.VmxUnlock(handle, "mc");
    own.VmxClose(handle);
  }
  state.counters["worst_ms"] = worst;
}
BENCHMARK(lockOfADeadStation)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(300);

}  // namespace
