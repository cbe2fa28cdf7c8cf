// The figures of the record store. Archives lie below TMPDIR (or the system's directory for temporary files):
// on a disk the postings show what a flush costs there, in memory what they cost by themselves.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <optional>
#include <random>

#include "archives/archive.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/pc.h"
#include "archives/pr.h"
#include "archives/sd.h"
#include "common/text.h"
#include "store/group.h"

namespace {

std::atomic<std::int64_t> flushes;

}  // namespace

// Takes the C library's place for this program, so that flushes can be counted.
extern "C" int fdatasync(int descriptor) {
  ++flushes;
  return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}
extern "C" int fsync(int descriptor) {
  ++flushes;
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

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

store::StoreOptions options() {
  store::StoreOptions made;
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

// A company's year: a million journal rows, and what a posting touches besides.
class Books {
 public:
  Books() {
    make<rec::mc>(store_, mcStem(), 8);
    make<rec::pc>(store_, directory_ / "2003ABpc", 5);
    make<rec::pr>(store_, directory_ / "2003ABpr", 10);
    make<rec::iv>(store_, directory_ / "2003ABiv", 8);
    make<rec::sd>(store_, directory_ / "2003ABsd", 8);
    Archive<rec::mc> mc(store_);
    Archive<rec::pc> pc(store_);
    Archive<rec::pr> pr(store_);
    expect(mc.open(mcStem()));
    expect(pc.open(directory_ / "2003ABpc"));
    expect(pr.open(directory_ / "2003ABpr"));
    for (int i = 0; i < kVoices; ++i) {
      pc.A = voice(i);
      expect(pc.put(number(i, 5), Put::add));
    }
    for (const char* key : {"mc", "iv", "scaclird", "dati", "fv1"}) expect(pr.put(key, Put::add));
    std::mt19937 random(1);
    for (int first = 0; first < kRows; first += 10'000) {
      store::Group group(store_, directory_ / "AB--", 8, 1);
      for (int i = first; i < first + 10'000; ++i) {
        mc.A = journalRow(i, static_cast<int>(random() % kVoices));
        expect(mc.put(number(i, 8), Put::add));
      }
      if (!group.commit()) std::abort();
    }
    expect(store_.settle());
  }

  store::RecordStore& station() { return store_; }
  std::string mcStem() const { return directory_ / "2003ABmc"; }
  const Directory& directory() const { return directory_; }

 private:
  Directory directory_;
  store::RecordStore store_{options()};
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
  explicit Posting(bool asGroup) : asGroup_(asGroup) {
    const Directory& directory = books().directory();
    expect(mc_.open(books().mcStem()));
    expect(pc_.open(directory / "2003ABpc"));
    expect(pr_.open(directory / "2003ABpr"));
    expect(iv_.open(directory / "2003ABiv"));
    expect(sd_.open(directory / "2003ABsd"));
    mc_.eof(0);
    if (mc_.previous(0) == store::kOk) row_ = std::stoi(mc_.primaryKey()) + 1;
  }

  void post() {
    std::optional<store::Group> group;
    if (asGroup_) group.emplace(books().station(), books().directory() / "AB--", 8, 1);
    for (const char* counter : {"fv1", "dati", "mc", "iv", "scaclird"}) draw(counter);
    for (int i = 0; i < 5; ++i, ++row_) {
      mc_.A = journalRow(row_ % kRows, static_cast<int>(random_() % kVoices));
      written(mc_.put(number(row_, 8), Put::add), mc_);
      for (int level = 0; level < 3; ++level) addTo(number(random_() % kVoices, 5));
    }
    for (int i = 0; i < 2; ++i) written(iv_.put(number(row_ * 2 + i, 8), Put::add), iv_);
    written(sd_.put(number(row_, 8), Put::add), sd_);
    if (group && !group->commit()) std::abort();
  }

 private:
  template <class R>
  void written(store::Code code, Archive<R>& archive) {
    expect(code);
    expect(archive.flush());
  }
  void draw(const char* counter) {
    pr_.spinLock(counter);
    expect(pr_.search(0, counter));
    pr_.A = pr_.B;
    ++pr_.A.valore;
    written(pr_.put(counter, Put::write), pr_);
    pr_.unlock(counter);
  }
  void addTo(const std::string& account) {
    pc_.spinLock(account);
    expect(pc_.search(0, account));
    pc_.A = pc_.B;
    pc_.A.dare += 1;
    written(pc_.put(account, Put::rewrite), pc_);
    pc_.unlock(account);
  }

  bool asGroup_;
  int row_ = 0;
  std::mt19937 random_{4};
  Archive<rec::mc> mc_{books().station()};
  Archive<rec::pc> pc_{books().station()};
  Archive<rec::pr> pr_{books().station()};
  Archive<rec::iv> iv_{books().station()};
  Archive<rec::sd> sd_{books().station()};
};

void posting(benchmark::State& state) {
  Posting posting(state.range(0) != 0);
  posting.post();
  const std::int64_t before = flushes;
  for (auto _ : state) posting.post();
  state.counters["flushes"] =
      benchmark::Counter(static_cast<double>(flushes - before), benchmark::Counter::kAvgIterations);
}
BENCHMARK(posting)->Name("posting/flush_per_write")->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(posting)->Name("posting/group")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

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
