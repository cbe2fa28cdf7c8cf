// The figures of the record store. Archives lie below TMPDIR (or the system's directory for temporary files):
// on a disk the postings show what a flush costs there, in memory what they cost by themselves.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>

#include "archives/archive.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/pc.h"
#include "archives/pr.h"
#include "archives/sd.h"
#include "common/text.h"
#include "flushes.h"
#include "store/group.h"

namespace {

using archives::Archive;
using store::Get;
using store::Put;

constexpr int kRows = 1'000'000, kVoices = 2'000;

std::string number(long long value, std::size_t width) { return common::zeroFill(value, width); }

class Directory {
 public:
  Directory() {
    path_ = (std::filesystem::temp_directory_path() / "tarvex-bench-XXXXXX").string();
    if (!::mkdtemp(path_.data())) std::abort();
  }
  ~Directory() { std::filesystem::remove_all(path_); }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

 private:
  std::string path_;
};

store::StoreOptions options(bool share = false) {
  store::StoreOptions made;
  made.share = share;
  made.logOf = [](std::string_view) { return "AB--.grp"; };
  return made;
}

rec::mc journalRow(int row, int voice) {
  const std::string day = "2003" + number(1 + row / (kRows / 12 + 1), 2) + number(1 + row % 28, 2);
  rec::mc mc;
  mc.datareg = day;
  mc.numdoc = number(row / 5, 6);
  mc.datadoc = day;
  mc.conto = number(voice, 5);
  mc.dare = row * 0.01;
  mc.nummov = std::to_string(row - row % 5);
  mc.descrizione = "FATTURA DI VENDITA N. " + mc.numdoc;
  mc.chiavecontodoc = mc.conto + day + mc.numdoc;
  mc.chiavecontodata = mc.conto + day;
  mc.chiavedatadoc = day + mc.numdoc;
  mc.causale = "fv";
  mc.registro = "1";
  return mc;
}

rec::pc voice(int i) {
  rec::pc pc;
  pc.ragsoc = "ROSSI MARIO E FIGLI " + number(i * 7919 % kVoices, 6);
  pc.indirizzo = "VIA GARIBALDI, 12";
  pc.citta = "MODENA";
  pc.partitaiva = number(i, 11);
  pc.mastro = "00010";
  pc.tipo = "c";
  pc.natura = "p";
  pc.conto = "00011";
  pc.codice =
      "00010"
      "00011" +
      number(i, 5);
  pc.chiavetipo = "c" + pc.ragsoc;
  pc.chiavegruppo = "cf" + pc.ragsoc;
  return pc;
}

template <class R>
void make(store::RecordStore& store, const std::string& stem, int keyLength) {
  const auto format = archives::Layout<R>::format;
  if (store.VmxCreate(stem, keyLength, std::string(format)) != store::kOk) std::abort();
}

void expect(store::Code code) {
  if (code != store::kOk) std::abort();
}

// A company's year: journal rows, a million as a rule, and what a posting touches besides.
class Books {
 public:
  explicit Books(int rows = kRows, bool share = false)
      : station_(std::make_unique<store::RecordStore>(options(share))) {
    store::RecordStore& store = *station_;
    make<rec::mc>(store, mcStem(), 8);
    make<rec::pc>(store, directory_ / "2003ABpc", 5);
    make<rec::pr>(store, directory_ / "2003ABpr", 10);
    make<rec::iv>(store, directory_ / "2003ABiv", 8);
    make<rec::sd>(store, directory_ / "2003ABsd", 8);
    Archive<rec::mc> mc(store);
    Archive<rec::pc> pc(store);
    Archive<rec::pr> pr(store);
    expect(mc.open(mcStem()));
    expect(pc.open(directory_ / "2003ABpc"));
    expect(pr.open(directory_ / "2003ABpr"));
    for (int i = 0; i < kVoices; ++i) {
      pc.A = voice(i);
      expect(pc.put(number(i, 5), Put::add));
    }
    for (const char* key : {"iv", "scaclird", "dati", "fv1"}) expect(pr.put(key, Put::add));
    pr.A.valore = rows;
    expect(pr.put("mc", Put::add));
    std::mt19937 random(1);
    for (int first = 0; first < rows; first += 10'000) {
      store::Group group(store, directory_ / "AB--", 8, 1);
      for (int i = first; i < first + 10'000; ++i) {
        mc.A = journalRow(i, static_cast<int>(random() % kVoices));
        expect(mc.put(number(i, 8), Put::add));
      }
      if (!group.commit()) std::abort();
    }
    expect(store.settle());
  }

  store::RecordStore& station() { return *station_; }
  void leave() { station_.reset(); }  // to other stations
  std::string mcStem() const { return directory_ / "2003ABmc"; }
  const Directory& directory() const { return directory_; }

 private:
  Directory directory_;
  std::unique_ptr<store::RecordStore> station_;
};

Books& books() {
  static Books made;  // a minute's work, for all of the benchmarks
  return made;
}

void scan(benchmark::State& state) {
  Archive<rec::mc> mc(books().station());
  expect(mc.open(books().mcStem()));
  const int index = static_cast<int>(state.range(0));
  std::int64_t rows = 0;
  for (auto _ : state) {
    mc.bof(index);
    for (; mc.next(index) == store::kOk; ++rows) benchmark::DoNotOptimize(mc.B.dare);
  }
  state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsRate);
}
BENCHMARK(scan)->Name("scan/primary_key")->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(scan)->Name("scan/date_index")->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(scan)->Name("scan/scattered_index")->Arg(10)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state) {
  Archive<rec::mc> mc(books().station());
  expect(mc.open(books().mcStem()));
  const int index = static_cast<int>(state.range(0));
  std::mt19937 random(2);
  for (auto _ : state) {
    const auto row = static_cast<int>(random() % kRows);
    benchmark::DoNotOptimize(mc.search(index, index == 0 ? number(row, 8) : journalRow(row, 0).datareg));
  }
}
BENCHMARK(search)->Name("search/primary_key")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(search)->Name("search/date_index")->Arg(1)->Unit(benchmark::kMicrosecond);

void readDocument(benchmark::State& state) {
  store::RecordStore station{options()};
  const Directory directory;
  std::string format = "x8$,x5$,$,#", record;
  for (int i = 0; i < 12; ++i) format += i % 3 == 2 ? ",A401#" : ",A401$";
  store::Encoder out(record);
  out.text("00000001");
  out.text("00123");
  out.text("ROSSI MARIO");
  out.number(1);
  for (int i = 0; i < 12; ++i) {
    out.count(static_cast<std::size_t>(state.range(0)));
    for (int row = 0; row < state.range(0); ++row) i % 3 == 2 ? out.number(row) : out.text("ARTICOLO 12");
  }
  expect(station.VmxCreate(directory / "xx", 8, format));
  store::Handle xx = 0;
  expect(station.VmxOpen(directory / "xx", xx));
  for (int i = 0; i < 1000; ++i) expect(station.VmxPut(xx, number(i, 8), record, Put::add));
  store::Found found;
  std::mt19937 random(3);
  for (auto _ : state) {
    expect(station.VmxGet(xx, 0, Get::search, number(random() % 1000, 8), found));
    store::Decoder in(found.record);
    double sum = 0;
    for (int i = 0; i < 3; ++i) in.text();
    in.number();
    for (int i = 0; i < 12; ++i)
      for (std::size_t rows = in.count(401); rows; --rows) sum += i % 3 == 2 ? in.number() : in.text().size();
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(readDocument)->Arg(10)->Arg(400)->Unit(benchmark::kMicrosecond);

void openPooled(benchmark::State& state) {
  Archive<rec::mc> mc(books().station());
  for (auto _ : state) {
    expect(mc.open(books().mcStem()));
    expect(mc.close());
  }
}
BENCHMARK(openPooled)->Unit(benchmark::kMicrosecond);

// A station that comes to a running one: the log, the connection and the first record.
void openCold(benchmark::State& state) {
  for (auto _ : state) {
    auto station = std::make_unique<store::RecordStore>(options());
    store::Handle handle = 0;
    expect(station->VmxOpen(books().mcStem(), handle));
    state.PauseTiming();
    station.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(openCold)->Unit(benchmark::kMicrosecond);

// What the registration of an invoice does to the archives, flushed after each write or as one group.
class Posting {
 public:
  Posting(store::RecordStore& station, const Directory& directory, bool asGroup)
      : station_(station), log_(directory / "AB--"), asGroup_(asGroup) {
    expect(mc_.open(directory / "2003ABmc"));
    expect(pc_.open(directory / "2003ABpc"));
    expect(pr_.open(directory / "2003ABpr"));
    expect(iv_.open(directory / "2003ABiv"));
    expect(sd_.open(directory / "2003ABsd"));
  }

  void post() {
    std::optional<store::Group> group;
    if (asGroup_) group.emplace(station_, log_, 8, 1);
    for (const char* counter : {"fv1", "dati", "iv", "scaclird"}) draw(counter, 1);
    const int row = draw("mc", 5);
    for (int i = row - 5; i < row; ++i) {
      mc_.A = journalRow(i % kRows, static_cast<int>(random_() % kVoices));
      written(mc_.put(number(i, 8), Put::add), mc_);
      for (int level = 0; level < 3; ++level) addTo(number(random_() % kVoices, 5));
    }
    for (int i = 0; i < 2; ++i) written(iv_.put(number(row * 2 + i, 8), Put::add), iv_);
    written(sd_.put(number(row, 8), Put::add), sd_);
    if (group && !group->commit()) std::abort();
  }

 private:
  template <class R>
  void written(store::Code code, Archive<R>& archive) {
    expect(code);
    expect(archive.flush());
  }
  int draw(const char* counter, int count) {
    pr_.spinLock(counter);
    expect(pr_.search(0, counter));
    pr_.A = pr_.B;
    pr_.A.valore += count;
    written(pr_.put(counter, Put::write), pr_);
    pr_.unlock(counter);
    return static_cast<int>(pr_.A.valore);
  }
  void addTo(const std::string& account) {
    pc_.spinLock(account);
    expect(pc_.search(0, account));
    pc_.A = pc_.B;
    pc_.A.dare += 1;
    written(pc_.put(account, Put::rewrite), pc_);
    pc_.unlock(account);
  }

  store::RecordStore& station_;
  std::string log_;
  bool asGroup_;
  std::mt19937 random_{4};
  Archive<rec::mc> mc_{station_};
  Archive<rec::pc> pc_{station_};
  Archive<rec::pr> pr_{station_};
  Archive<rec::iv> iv_{station_};
  Archive<rec::sd> sd_{station_};
};

void posting(benchmark::State& state, Books& company) {
  Posting posting(company.station(), company.directory(), state.range(0) != 0);
  posting.post();
  const std::int64_t before = bench::flushes();
  for (auto _ : state) posting.post();
  state.counters["flushes"] =
      benchmark::Counter(static_cast<double>(bench::flushes() - before), benchmark::Counter::kAvgIterations);
}
void postingHere(benchmark::State& state) { posting(state, books()); }
BENCHMARK(postingHere)->Name("posting/flush_per_write")->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(postingHere)->Name("posting/group")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void postingOnShare(benchmark::State& state) {
  static Books company(20'000, true);
  posting(state, company);
}
BENCHMARK(postingOnShare)
    ->Name("posting/share_flush_per_write")
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(postingOnShare)->Name("posting/share_group")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

// A station of its own process that posts until the time is over: how many it has posted.
int postUntil(std::chrono::steady_clock::time_point end, const Directory& directory) {
  store::RecordStore station{options()};
  Posting posting(station, directory, true);
  int posted = 0;
  for (; std::chrono::steady_clock::now() < end; ++posted) posting.post();
  return posted;
}

// Several stations at one company's books: how many postings they make together.
void stations(benchmark::State& state) {
  Books company(20'000);
  company.leave();  // a process that is forked must not have the archives open
  constexpr std::chrono::seconds kTime(2);
  std::int64_t posted = 0;
  for (auto _ : state) {
    int ends[2];
    if (::pipe(ends) != 0) std::abort();
    const auto end = std::chrono::steady_clock::now() + kTime;
    for (int n = 0; n < state.range(0); ++n) {
      if (::fork() != 0) continue;
      const int his = postUntil(end, company.directory());
      ::_exit(::write(ends[1], &his, sizeof his) == sizeof his ? 0 : 1);
    }
    ::close(ends[1]);
    for (int his = 0; ::read(ends[0], &his, sizeof his) == sizeof his;) posted += his;
    ::close(ends[0]);
    while (::wait(nullptr) > 0) continue;
  }
  state.counters["postings/s"] =
      static_cast<double>(posted) / static_cast<double>(state.iterations() * kTime.count());
}
BENCHMARK(stations)->Arg(1)->Arg(2)->Arg(4)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

// The disk's own flush of one block, beside which the postings are to be read.
void diskFlush(benchmark::State& state) {
  const Directory directory;
  const int descriptor = ::open((directory / "block").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  const std::string block(4096, 'x');
  for (auto _ : state)
    if (::pwrite(descriptor, block.data(), block.size(), 0) < 0 || ::fdatasync(descriptor) < 0) std::abort();
  ::close(descriptor);
}
BENCHMARK(diskFlush)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
