// The figures of the books on paper: a year of 800,000 rows of the journal, a month of 5,000 invoices.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <string>

#include "app/invoices.h"
#include "archives/iv.h"
#include "journal_year.h"
#include "ledger/books/account_card.h"
#include "ledger/books/general_journal.h"
#include "ledger/journal_lines.h"
#include "tools/scratch.h"
#include "vat/register.h"
#include "yearend/balance.h"

namespace {

using namespace tarvex;
using namespace bench;

constexpr int kRows = 800'000, kInvoices = 5'000;

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
    addJournal(station.session, kRows);
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
