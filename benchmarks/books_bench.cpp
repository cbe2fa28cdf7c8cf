// The figures of the books on paper: a year of 800,000 rows of the journal, a month of 5,000 invoices.
//
// ./bench puts the archives into memory, so that the program is measured and not a disk.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <string>

#include "app/invoices.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "common/text.h"
#include "ledger/books/account_card.h"
#include "ledger/books/general_journal.h"
#include "ledger/journal_lines.h"
#include "store/group.h"
#include "tools/scratch.h"
#include "vat/register.h"
#include "yearend/balance.h"

namespace {

using namespace tarvex;

constexpr int kRows = 800'000, kLines = 5, kVoices = 2'000, kFirstVoice = 100, kInvoices = 5'000;

std::string zeros(long long value, std::size_t width) { return common::zeroFill(value, width); }

void addVoices(Session& session) {
  for (int i = 0; i < kVoices; ++i) {
    rec::pc& voice = session.pc.A = {};
    const std::string code = zeros(kFirstVoice + i, 5);
    const bool customer = i % 2 == 0;
    voice.ragsoc = (customer ? "CLIENTE " : "CONTO ") + zeros(i, 6);
    voice.tipo = customer ? "c" : "s";
    voice.natura = i % 4 == 1 ? "e" : "p";
    voice.mastro = "00001";
    voice.conto = customer ? "00005" : "00021";
    voice.codice = voice.mastro + voice.conto + code;
    session.pc.put(code, store::Put::add);
  }
  session.pc.flush();
}

// Writes in groups, as whoever writes much does: the log is settled from time to time.
void inGroups(Session& session, int count, const std::function<void(int)>& write) {
  constexpr int atOnce = 10'000;
  for (int first = 0; first < count; first += atOnce) {
    store::Group group(session.store, session.groupLog(), session.pr.code, 1);
    for (int i = first; i < std::min(count, first + atOnce); ++i) write(i);
    if (!group.commit()) std::abort();
  }
}

// Entries of five lines that balance, day after day.
void addJournal(Session& session) {
  OpenArchive<rec::mc> mc(session, 1, 2);
  inGroups(session, kRows, [&](int row) {
    const int entry = row - row % kLines, line = row % kLines;
    rec::mc& one = mc->A = {};
    one.datareg = "2003" + zeros(1 + row / (kRows / 12 + 1), 2) + zeros(1 + (row / 2400) % 28, 2);
    one.numdoc = zeros(entry / kLines % 1'000'000, 6);
    one.datadoc = one.datareg;
    one.conto = zeros(kFirstVoice + (row * 7919LL) % kVoices, 5);
    (line == 0 ? one.dare : one.avere) = line == 0 ? 4.0 * (entry % 997 + 1) : entry % 997 + 1;
    one.nummov = std::to_string(entry + 1);
    one.descrizione = "Fattura n. " + one.numdoc;
    one.causale = "mg";
    one.chiavecontodoc = one.conto + one.datadoc + one.numdoc;
    one.chiavecontodata = one.conto + one.datareg;
    one.chiavedatadoc = one.datareg + one.numdoc;
    mc->put(zeros(row + 1, 8), store::Put::add);
  });
  session.pr.A = {};
  session.pr.A.valore = kRows;
  session.pr.put("mc", store::Put::write);
  session.pr.flush();
}

void addInvoices(Session& session) {
  OpenArchive<rec::iv> iv(session, 3, 4);
  inGroups(session, kInvoices, [&](int at) {
    const int i = at + 1;
    rec::iv& row = iv->A = {};
    row.mese = "01";
    row.numero = zeros(i, 5);
    row.datareg = row.datadoc = zeros(1 + i * 27 / kInvoices, 2) + "/01/2003";
    row.conto = zeros(kFirstVoice + 2 * (i % (kVoices / 2)), 5);
    row.imponibile = 100;
    row.codiva = "22";
    row.aliquota = " 22";
    row.imposta = 22;
    row.registro = "1";
    row.chiavereg = "1" + row.numero;
    iv->put(" " + std::to_string(i), store::Put::add);
  });
}

Session& books() {
  static const test::Scratch scratch;
  static test::Station station(scratch.path());
  static const bool made = [] {
    station.start(test::found(station.desk, test::kCompany, test::kYear));
    addVoices(station.session);
    addJournal(station.session);
    addInvoices(station.session);
    station.session.store.settle();
    return true;
  }();
  benchmark::DoNotOptimize(made);
  return station.session;
}

double residentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double total = 0, resident = 0;
  status >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

JournalReport journal(Session& session) {
  return layOutJournal(session, {{"20030101", "20031231"}, 1, 1, {}}, {});
}

void theJournalAsText(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) {
    const auto made = journal(session);
    made.report->finish();
    if (made.journal->lastRow() != kRows) return state.SkipWithError("rows are missing");
    state.counters["resident_MB"] = residentMegabytes();
    state.counters["pages"] = static_cast<double>(made.report->pages().size());
  }
}
BENCHMARK(theJournalAsText)->Unit(benchmark::kMillisecond)->Iterations(1);

void theFirstPageOfTheJournal(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) {
    const auto made = journal(session);
    while (made.report->pages().size() < 2 && made.report->grow()) continue;
  }
}
BENCHMARK(theFirstPageOfTheJournal)->Unit(benchmark::kMillisecond);

void theBalanceFromTheJournal(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) {
    const auto voices = readChart(session);
    const auto accounts = readAccounts(session, *voices, {DateRange{"20030101", "20031231"}});
    benchmark::DoNotOptimize(makeBalance(*accounts, *voices));
  }
}
BENCHMARK(theBalanceFromTheJournal)->Unit(benchmark::kMillisecond)->Iterations(1);

void anAccountCard(benchmark::State& state) {
  Session& session = books();
  int voice = 0;
  std::size_t rows = 0;
  for (auto _ : state) {
    const auto card = readCard(session, zeros(kFirstVoice + voice++ % kVoices, 5), {"20030101", "20031231"});
    rows = card->rows.size();
  }
  state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(anAccountCard)->Unit(benchmark::kMillisecond);

void theFirstPageOfTheList(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) {
    const JournalLines lines(session, {"20030101", "20031231"}, "");
    for (std::size_t row = 0; row < 20; ++row)
      for (std::size_t column = 0; column < 8; ++column) benchmark::DoNotOptimize(lines.cell(row, column));
  }
}
BENCHMARK(theFirstPageOfTheList)->Unit(benchmark::kMillisecond);

void theRegisterOfAMonth(benchmark::State& state) {
  Session& session = books();
  for (auto _ : state) {
    const auto table = loadVatTable(session);
    auto rows = kSalesRegister.read(session, {"1", "01", "01"});
    const Register made = makeRegister(kSalesRegister, std::move(*rows), *table);
    if (made.rows.size() != kInvoices) return state.SkipWithError("rows are missing");
    benchmark::DoNotOptimize(layOut(kSalesRegister, made, {"1", "Gennaio", "2003", {}}, {}));
  }
}
BENCHMARK(theRegisterOfAMonth)->Unit(benchmark::kMillisecond);

}  // namespace
