// A print as pages of lines in a fixed-pitch font, with pictures: drawn on paper, in a PDF file or on
// the screen by the window, and as plain text for tests and files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/text.h"

namespace ui {

struct Setup {
  std::string font = "Courier New";
  double size = 10;    // of the letters, in points
  int pageLines = 60;  // below 1 reads as 60
  bool landscape = false;
};

struct Picture {
  std::string path;
  double left, top, width, height;  // in points from the margins; a width of 0: its own size
};

struct Line {
  std::string_view text;  // without trailing blanks; as long as the page stands unchanged
  double size;
  bool bold;
  double top;  // from the upper margin, in points
};

// The lines of a page, kept as one text: a year's journal has a million and a half of them.
class Page {
 public:
  std::size_t size() const { return ends_.size(); }
  Line line(std::size_t number) const;
  std::vector<Line> lines() const;
  const std::vector<Picture>& pictures() const { return pictures_; }

 private:
  friend class Report;
  struct Run {  // of lines that look alike
    std::size_t first;
    double size;
    bool bold;
    double top;
  };
  void add(std::string_view text, double size, bool bold, double top);
  void close();  // no line comes any more

  std::string text_;
  std::vector<std::uint32_t> ends_;  // of each line in the text
  std::vector<Run> runs_;
  std::vector<Picture> pictures_;
};

class Report {
 public:
  explicit Report(std::string_view title, Setup setup = {});
  ~Report();

  const std::string& title() const { return title_; }
  const Setup& setup() const { return setup_; }
  const std::vector<Page>& pages() const { return pages_; }  // one blank page to begin with
  double margin() const { return 28; }                       // on all sides, in points

  void setSize(double points) { size_ = points; }
  void setBold(bool on) { bold_ = on; }
  void line(std::string_view text = {});  // made clean; on a new page when this one is full
  void lines(int blank);
  void picture(Picture picture);
  void newPage();
  int left() const;       // lines that the page still takes
  double height() const;  // taken so far on the page, in points

  // A long report lays itself out as far as it is looked at: `more` writes some lines onto it, and answers
  // false when nothing is left to write.
  void onDemand(std::function<bool()> more) { more_ = std::move(more); }
  bool isWhole() const { return !more_; }
  bool grow() const;  // by some lines; false: the report is whole
  void finish() const;

  std::vector<std::string> textOf(const Page& page) const;
  std::string text() const;  // all pages, each ends with a form feed

 private:
  std::string title_;
  Setup setup_;
  double size_;
  bool bold_ = false;
  double top_ = 0;
  std::vector<Page> pages_;
  mutable std::function<bool()> more_;  // who shows a report lays it out, and may do nothing else to it
};

// A column of a table: where it stands and what it shows of a row.
template <class Row>
struct Column {
  std::string_view head;
  int at;     // the print column of its first character, from 1
  int width;  // in characters
  common::Align align;
  std::string (*text)(const Row&);
};

// For a static_assert beside the table: columns stand in order and none overlaps the next.
template <class Row, std::size_t N>
consteval bool ordered(const Column<Row> (&columns)[N]) {
  for (std::size_t i = 0; i < N; ++i) {
    if (columns[i].at < 1 || columns[i].width < 1) return false;
    if (i > 0 && columns[i].at < columns[i - 1].at + columns[i - 1].width) return false;
  }
  return true;
}

// Adds `text` at print column `at`. Text at the left is cut to its width; a figure at the right never
// is, since a figure cut short is a wrong one: one that is too wide takes up the gap in front of it, then
// the gap behind, and then moves the rest.
void place(std::string& line, int at, int width, common::Align align, std::string_view text);

template <class Row, std::size_t N>
std::string line(const Column<Row> (&columns)[N], const Row& row) {
  std::string result;
  for (const auto& column : columns) place(result, column.at, column.width, column.align, column.text(row));
  return result;
}

template <class Row, std::size_t N>
std::string heading(const Column<Row> (&columns)[N]) {
  std::string result;
  for (const auto& column : columns) place(result, column.at, column.width, column.align, column.head);
  return result;
}

}  // namespace ui
