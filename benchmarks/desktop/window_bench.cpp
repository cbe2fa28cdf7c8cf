// The figures of the window: from the start of a process to its painted frame, the opening of forms, a list
// of a million rows, a PDF of a hundred pages, the memory with a company open.
//
// What concerns a whole process is measured in one of its own: this program, started again by itself.
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "app/invoices.h"
#include "desktop/area.h"
#include "desktop/form_view.h"
#include "desktop/form_window.h"
#include "desktop/list_view.h"
#include "desktop/report_paint.h"
#include "desktop/screen.h"

namespace {

constexpr const char* kToday = "15/01/2003";
constexpr int kRows = 1'000'000, kPages = 100, kPageLines = 60;

const std::filesystem::path& books() {
  static const test::Scratch scratch;
  static const bool made = (test::makeBooks(scratch.path()), true);
  benchmark::DoNotOptimize(made);
  return scratch.path();
}

double millisecondsNow() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double residentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double total = 0, resident = 0;
  status >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void openCompany(test::Screen& screen) {
  screen.modals.expect([&screen](QWidget&) {
    test::choose(test::kCompany, test::kYear)(*screen.program.desk().forms().back());
  });
  if (!screen.program.start()) throw std::logic_error("the program did not start");
  screen.settle();
}

// --- a process of its own ---

// Tells the time of the first frame on the screen, and ends.
class FirstFrame : public QObject {
 public:
  explicit FirstFrame(QWidget& ground) : ground_(ground) {}

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &ground_ && event->type() == QEvent::Paint)
      QTimer::singleShot(0, this, [] {
        std::printf("%f\n", millisecondsNow());
        std::fflush(stdout);
        _exit(0);
      });
    return false;
  }
  QWidget& ground_;
};

int startOnce(const std::filesystem::path& data) {
  desktop::Program program(
      {.session = {data, data, TARVEX_SOURCE_DIR "/data", common::Clock(kToday, "10:30")},
       .units = tarvex::units(),
       .settings = QString::fromStdString((data / "tarvex.ini").string())});
  FirstFrame first(*program.window().area().viewport());
  qApp->installEventFilter(&first);
  program.start();
  return 1;
}

int measureMemory(const std::filesystem::path& data) {
  test::Screen screen(kToday, data);
  openCompany(screen);
  std::printf("%f\n", residentMegabytes());
  return 0;
}

// What this program prints when it is started with `act`.
double askOneself(const char* act) {
  const std::string self = std::filesystem::read_symlink("/proc/self/exe");
  const std::string command = "'" + self + "' " + act + " '" + books().string() + "' 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  double figure = 0;
  const bool told = pipe && std::fscanf(pipe, "%lf", &figure) == 1;
  if (pipe) pclose(pipe);
  if (!told) throw std::logic_error(std::string("no answer to ") + act);
  return figure;
}

void frameOnTheScreen(benchmark::State& state) {
  books();
  for (auto _ : state) {
    const double begin = millisecondsNow();
    state.SetIterationTime((askOneself("--start") - begin) / 1e3);
  }
}
BENCHMARK(frameOnTheScreen)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

void memoryWithACompanyOpen(benchmark::State& state) {
  for (auto _ : state) state.counters["resident_MB"] = askOneself("--memory");
}
BENCHMARK(memoryWithACompanyOpen)->Iterations(1);

// --- this process ---

test::Screen& screen() {
  static auto* const standing = [] {
    auto* made = new test::Screen(kToday, books());
    openCompany(*made);
    return made;
  }();
  return *standing;
}

double openOnce(std::string_view unit) {
  QElapsedTimer timer;
  timer.start();
  screen().program.session().open(unit);
  QApplication::processEvents();
  const double taken = static_cast<double>(timer.nsecsElapsed()) / 1e9;
  if (QMdiSubWindow* window = screen().program.window().area().activeSubWindow()) window->close();
  screen().settle();
  return taken;
}

void openTheInvoiceForm(benchmark::State& state) {
  openOnce("mcfv");
  for (auto _ : state) state.SetIterationTime(openOnce("mcfv"));
}
BENCHMARK(openTheInvoiceForm)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

// Each form in its median; told is the slowest of them.
void openTheSlowestForm(benchmark::State& state) {
  std::string slowest;
  for (auto _ : state) {
    double worst = 0;
    for (const tarvex::Unit& unit : tarvex::units()) {
      if (!test::standsInTheFrame(unit.name)) continue;
      std::vector<double> times;
      for (int i = 0; i < 6; ++i) times.push_back(openOnce(unit.name));
      std::sort(times.begin() + 1, times.end());
      if (times[3] <= worst) continue;
      worst = times[3];
      slowest = unit.name;
    }
    state.SetIterationTime(worst);
  }
  state.SetLabel(slowest);
}
BENCHMARK(openTheSlowestForm)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

struct Many : ui::Rows {
  std::size_t count() const override { return kRows; }
  std::string cell(std::size_t row, std::size_t column) const override {
    return column == 0 ? std::to_string(row) : "Riga numero " + std::to_string(row);
  }
};

struct ManyRows : ui::Form {
  explicit ManyRows(ui::Desk& host) : Form(host, "many", "Un milione di righe") {
    list.setRows(std::make_unique<Many>());
  }
  ui::Layout layout() const override { return ui::column({ui::row({list})}); }
  ui::List list{*this, "list", "Righe", {{"Numero", 10}, {"Testo", 40}}};
};

struct ShownRows {
  ShownRows() {
    auto owned = std::make_unique<ManyRows>(screen().program.desk());
    form = owned.get();
    screen().program.desk().open(std::move(owned));
    QApplication::processEvents();
  }
  ~ShownRows() {
    screen().program.window().area().activeSubWindow()->close();
    screen().settle();
  }
  ShownRows(const ShownRows&) = delete;
  ShownRows& operator=(const ShownRows&) = delete;
  ManyRows* form;
};

void showAMillionRows(benchmark::State& state) {
  screen();
  for (auto _ : state) {
    QElapsedTimer timer;
    timer.start();
    const ShownRows shown;
    state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
  }
}
BENCHMARK(showAMillionRows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void jumpAmongAMillionRows(benchmark::State& state) {
  const ShownRows shown;
  ui::User user(*shown.form);
  bool end = false;
  for (auto _ : state) {
    user.select(shown.form->list, (end = !end) ? kRows - 1 : 0);
    QApplication::processEvents();
  }
}
BENCHMARK(jumpAmongAMillionRows)->Unit(benchmark::kMillisecond);

void writeAPdfOfAHundredPages(benchmark::State& state) {
  test::application();
  const test::Scratch scratch;
  ui::Report report("Giornale", {.size = 9, .pageLines = kPageLines});
  for (int i = 0; i < kPages * kPageLines; ++i)
    report.line(std::to_string(i) +
                "  15/01/2003  BIANCHI MARIO & C. S.N.C.   merci c/vendite   1.000,00   220,00");
  if (report.pages().size() != kPages) return state.SkipWithError("not a hundred pages");
  const QString path = QString::fromStdString((scratch.path() / "a.pdf").string());
  for (auto _ : state)
    if (!desktop::writePdf(report, path)) return state.SkipWithError("the file was not written");
}
BENCHMARK(writeAPdfOfAHundredPages)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** words) {
  const std::string_view asked = count == 3 ? words[1] : "";
  if (asked == "--start" || asked == "--memory") {
    test::application();
    return asked == "--start" ? startOnce(words[2]) : measureMemory(words[2]);
  }
  benchmark::Initialize(&count, words);
  benchmark::RunSpecifiedBenchmarks();
  std::fflush(stdout);
  _exit(0);  // as the toolkit's statics are not taken down either
}
