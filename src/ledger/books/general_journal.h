// The general journal on paper: every row of a period in the order of its registration, under numbers that
// run on from print to print, closed by the totals of the period and of the year.
#pragma once

#include <memory>
#include <string>

#include "common/currency.h"
#include "ledger/books/journal_walk.h"
#include "ui/paged.h"

namespace tarvex {

// The company above the columns; empty lines stand where nothing is asked for.
struct JournalHeading {
  std::string company, address, city, vatNumber;
  bool isNumbered = false;  // each page bears its number
};

struct JournalPrint {
  DateRange range;
  long firstRow = 1;
  int firstPage = 1;
  JournalHeading heading;
};

// Writes itself onto a report piece by piece, as it is read: a year's journal has a page to show long before
// its last row. Rows before the period print nothing, and count in the totals of the year.
class GeneralJournal {
 public:
  GeneralJournal(Session& session, JournalPrint print, ui::Report& report);

  bool more();  // some rows, at the end the totals; false: nothing is left to write
  bool isWhole() const { return walk_.isWhole(); }  // the journal could be read to its end
  std::size_t read() const { return read_; }        // rows so far, those before the period among them
  long lastRow() const { return row_; }             // the number that the last printed row bears
  int lastPage() const { return out_.page(); }

 private:
  struct Sums {
    common::Currency dare = 0, avere = 0;
    void add(const rec::mc& row);
  };
  void write(const rec::mc& row);
  void writeTotals();
  void writeEnd();

  JournalPrint print_;
  JournalWalk walk_;
  VoiceNames names_;
  ui::Paged out_;
  Sums period_, year_;
  std::string entry_;  // `nummov` of the row before
  std::size_t read_ = 0;
  long row_;
  bool ended_ = false;
};

// A report of the journal that lays itself out as far as it is looked at; `journal` tells how far it has
// come.
struct JournalReport {
  std::shared_ptr<ui::Report> report;
  std::shared_ptr<GeneralJournal> journal;
};
JournalReport layOutJournal(Session& session, const JournalPrint& print, ui::Setup setup);

}  // namespace tarvex
