// The window of a sheet: what is copied, sorted, found and saved.
#include "desktop/sheet_view.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QClipboard>
#include <QTableView>
#include <QTest>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tools/scratch.h"

namespace {

std::shared_ptr<const ui::Sheet> people() {
  using ui::numberCell, ui::textCell;
  return std::make_shared<const ui::Sheet>(ui::Sheet{"Saldi",
                                                     {20, 12},
                                                     {{textCell("BIANCHI"), numberCell(9)},
                                                      {textCell("=ROSSI"), numberCell(100.5)},
                                                      {textCell("Verdi"), numberCell(-3)}}});
}

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST_CASE("a sheet is sorted by value, searched whatever the case, and copied as it is shown") {
  desktop::SheetView view(people());
  auto& table = *view.findChild<QTableView*>();
  view.sortBy(1, true);
  CHECK(table.model()->index(0, 0).data().toString() == "Verdi");
  CHECK(table.model()->index(2, 1).data().toString() == "100,50");
  CHECK(view.find("rossi"));
  CHECK(table.currentIndex().row() == 2);
  CHECK_FALSE(view.find("neri"));
  table.selectAll();
  CHECK(view.selectedText() == "Verdi\t-3,00\nBIANCHI\t9,00\n=ROSSI\t100,50");
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  CHECK(QApplication::clipboard()->text() == view.selectedText());
}

TEST_CASE("a sheet is saved as a workbook whose texts stay texts, or as text") {
  const test::Scratch scratch;
  desktop::SheetView view(people());
  const std::string book = scratch.path() / "saldi.xlsx", text = scratch.path() / "saldi.csv";
  REQUIRE(view.saveAs(QString::fromStdString(book)));
  const std::string cells = scratch.path() / "cells";
  const std::string command =
      "python3 -c \"import zipfile,sys; z=zipfile.ZipFile(sys.argv[1]); "
      "open(sys.argv[2],'wb').write(z.read('xl/worksheets/sheet1.xml')"
      "+z.read('xl/sharedStrings.xml'))\" '" +
      book + "' '" + cells + "'";
  REQUIRE(std::system(command.c_str()) == 0);
  const std::string xml = contentsOf(cells);
  CHECK(xml.find("<v>100.5</v>") != std::string::npos);
  CHECK(xml.find("<t>=ROSSI</t>") != std::string::npos);
  CHECK(xml.find("<f>") == std::string::npos);
  REQUIRE(view.saveAs(QString::fromStdString(text)));
  CHECK(contentsOf(text).find("\"'=ROSSI\";100,50\r\n") != std::string::npos);
  CHECK_FALSE(view.saveAs("/nowhere/saldi.xlsx"));
}
