// Prints: the preview, the PDF and the text of a report tell the same.
#include <doctest/doctest.h>
#include <signal.h>
#include <sys/resource.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSpinBox>

#include "desktop/report_json.h"
#include "desktop/report_paint.h"
#include "desktop/report_view.h"
#include "desktop/screen.h"

namespace {

std::shared_ptr<const ui::Report> ledger(int rows) {
  ui::Report report("Giornale", {.size = 9, .pageLines = 50});
  for (int i = 1; i <= rows; ++i) report.line("riga " + std::to_string(i) + "   però 1.000,00");
  return std::make_shared<const ui::Report>(report);
}

// While it stands this process writes no file beyond so many bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    ::signal(SIGXFSZ, signal_);
  }

 private:
  rlimit before_{};
  void (*signal_)(int);
};

QStringList wordsOf(const QString& text) {
  return text.split(QRegularExpression("[\\s\\f]+"), Qt::SkipEmptyParts);
}

}  // namespace

TEST_CASE("the preview turns the pages of the report, finds and copies its text") {
  test::application();
  const auto report = ledger(120);
  desktop::ReportView view(report);
  view.resize(900, 700);
  view.show();
  CHECK(view.pages() == 3);
  view.setPage(7);
  CHECK(view.page() == 3);
  QTest::keyClick(&view, Qt::Key_Home);
  CHECK(view.page() == 1);
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  QStringList lines;
  for (const std::string& line : report->textOf(report->pages()[0])) lines << QString::fromStdString(line);
  CHECK(QApplication::clipboard()->text() == lines.join('\n'));

  CHECK(view.find("RIGA 77 "));
  CHECK(view.page() == 2);
  CHECK(view.find("riga 10"));  // from the page in sight on: 100
  CHECK(view.page() == 2);
  CHECK(view.find("riga 10"));
  CHECK(view.page() == 3);
  CHECK(view.find("riga 10", false));
  CHECK(view.page() == 2);
  CHECK_FALSE(view.find("riga 500"));
}

TEST_CASE("a report wider than its paper is drawn smaller, whole") {
  test::application();
  ui::Report report("Largo", {.size = 10});
  report.line(std::string(150, 'x'));
  const desktop::ReportPainter painter(report);
  const QRectF last = painter.place(report.pages()[0].line(0), 149, 1);
  CHECK(last.right() <= desktop::paperOf(report).width() - report.margin() + 0.5);
  CHECK(last.right() >= desktop::paperOf(report).width() - report.margin() - 2);
}

TEST_CASE("the PDF bears the text of every page, by the program of the driver too") {
  test::application();
  const test::Scratch directory;
  const auto report = ledger(120);
  const QString path = QString::fromStdString((directory.path() / "a.pdf").string());
  REQUIRE(desktop::writePdf(*report, path));
  if (!*PDFTOTEXT) return;
  QProcess reader;
  reader.start(PDFTOTEXT, {"-layout", path, "-"});
  REQUIRE(reader.waitForFinished());
  const QString text = QString::fromUtf8(reader.readAllStandardOutput());
  CHECK(text.count('\f') == 3);
  CHECK(wordsOf(text) == wordsOf(QString::fromStdString(report->text())));
}

TEST_CASE("a disk that fills while the PDF is written leaves the file that was there") {
  test::application();
  const test::Scratch directory;
  const QString path = QString::fromStdString((directory.path() / "a.pdf").string());
  REQUIRE(desktop::writePdf(*ledger(10), path));
  const auto bytes = [&] {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  };
  const QByteArray before = bytes();
  {
    const FullDisk disk(16 * 1024);
    CHECK_FALSE(desktop::writePdf(*ledger(20'000), path));
  }
  CHECK(bytes() == before);
  CHECK(QDir(QString::fromStdString(directory.path().string())).entryList(QDir::Files).size() == 1);
  CHECK(desktop::writePdf(*ledger(20'000), path));
}

TEST_CASE("a report survives its way through the driver's JSON, and other texts are refused") {
  const std::string json =
      R"({"title":"T","font":"Courier New","size":10,"pageLines":60,"landscape":true,"margin":28,
    "pages":[{"lines":[{"text":"uno","size":12,"bold":true,"top":0},
    {"text":"due","size":10,"bold":false,"top":13.68}],
    "pictures":[]},{"lines":[],"pictures":[{"path":"x.png","left":1,"top":2,"width":3,"height":4}]}]})";
  const auto report = desktop::parseReport(json);
  REQUIRE(report);
  CHECK(report->setup().landscape);
  REQUIRE(report->pages().size() == 2);
  CHECK(report->pages()[0].line(1).text == "due");
  CHECK(report->pages()[0].line(1).top == doctest::Approx(13.68));
  CHECK(report->pages()[0].line(0).bold);
  CHECK(report->pages()[1].pictures()[0].height == 4);
  for (const char* other : {"", "[]", "{}", "{\"title\":3}", "{\"title\":\"T\",\"pages\":7"})
    CHECK_FALSE(desktop::parseReport(other));
}
