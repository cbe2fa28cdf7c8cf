// What it takes to prove, rebuild and repair the journal of a year of a million rows, to make its
// progressives anew, to verify the books, and to be given the lock of a station that has died.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "app/invoices.h"
#include "app/verify.h"
#include "archives/mc.h"
#include "common/text.h"
#include "store/group.h"
#include "tools/child.h"
#include "tools/scratch.h"

namespace {

using namespace tarvex;

constexpr int kRows = 1'000'000, kLines = 5, kVoices = 2'000, kFirstVoice = 100, kAtOnce = 10'000;

std::string zeros(long long value, std::size_t width) { return common::zeroFill(value, width); }

void addVoices(Session& session) {
  for (int i = 0; i < kVoices; ++i) {
    rec::pc& voice = session.pc.A = {};
    const std::string code = zeros(kFirstVoice + i, 5);
    voice.ragsoc = "CLIENTE " + zeros(i, 6);
    voice.tipo = "c";
    voice.natura = "p";
    voice.mastro = "00001";
    voice.conto = "00005";
    voice.codice = voice.mastro + voice.conto + code;
    session.pc.put(code, store::Put::add);
  }
  session.pc.flush();
}

// Entries of five lines that balance, day after day.
rec::mc journalRow(int row) {
  const int entry = row / kLines, line = row % kLines;
  rec::mc one;
  one.datareg = "2003" + zeros(1 + row / (kRows / 12 + 1), 2) + zeros(1 + (row / 2400) % 28, 2);
  one.numdoc = zeros(entry, 6);
  one.datadoc = one.datareg;
  one.conto = zeros(kFirstVoice + (row * 7919LL) % kVoices, 5);
  (line == 0 ? one.dare : one.avere) = line == 0 ? 4.0 * (entry % 997 + 1) : entry % 997 + 1;
  one.nummov = std::to_string(entry * kLines + 1);
  one.descrizione = "Fattura n. " + one.numdoc;
  one.causale = "mg";
  one.chiavecontodoc = one.conto + one.datadoc + one.numdoc;
  one.chiavecontodata = one.conto + one.datareg;
  one.chiavedatadoc = one.datareg + one.numdoc;
  return one;
}

void addJournal(Session& session) {
  OpenArchive<rec::mc> mc(session, 1, 2);
  for (int first = 0; first < kRows; first += kAtOnce) {
    store::Group group(session.store, session.groupLog(), session.pr.code, 1);
    for (int row = first; row < first + kAtOnce; ++row) {
      mc->A = journalRow(row);
      mc->put(zeros(row + 1, 8), store::Put::add);
    }
    if (!group.commit()) std::abort();
  }
  session.pr.A = {};
  session.pr.A.valore = kRows;
  session.pr.put("mc", store::Put::write);
  session.pr.flush();
}

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
    addJournal(station.session);
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
