// The VAT registers as values: what one month of a register holds, computed from its rows, and how it is laid
// out on paper. Nothing here asks the user or writes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "session/trace.h"
#include "ui/report.h"
#include "vat/totals.h"
#include "vat/vat_table.h"

namespace tarvex {

// One VAT row of a document.
struct RegisterRow {
  long posted = 0;        // its number in the archive: the order of posting
  std::string numero;     // of the document; of purchases the protocol
  std::string fornitore;  // of purchases the supplier's number of the document
  std::string datareg;    // dd/mm/yyyy, may be empty
  std::string datadoc;    // dd/mm/yyyy; of receipts the day of registration
  std::string conto;      // of the customer or supplier
  std::string ragsoc;     // its name; empty when that voice is gone
  double imponibile = 0;
  std::string codiva;
  double aliquota = 0;  // percent, of the day of posting
  double imposta = 0;
  int slot = -1;          // set by makeRegister: of the code in the table; -1 when it is not there
  std::string note = {};  // set by makeRegister
  bool further = false;   // set by makeRegister: of the same document as the row before
};

using RegisterRows = std::optional<std::vector<RegisterRow>>;  // nothing when an archive cannot be read

struct RowsAsked {
  std::string registro;               // "1" to "9"; empty: of all registers
  std::string firstMonth, lastMonth;  // "01" to "12", both included
  bool names = true;                  // `ragsoc` is looked up
};

// What tells the registers of sales, purchases and receipts apart.
struct RegisterKind {
  VatSide side;
  std::string_view unit, name;          // of the form, and of the print
  std::string_view title, month, year;  // the words of the title line, joined by the register's facts
  std::string_view heading;             // over the columns
  std::size_t width;                    // of its longest line, in characters
  std::string_view gap;  // the words of a gap in the numbers; receipts stand by date, and have none
  std::string_view
      counter;  // of `pr`, less the register's number: the last month printed; receipts have none
  std::string (*line)(const RegisterRow& row);
  RegisterRows (*read)(Session& session, const RowsAsked& asked);
};
extern const RegisterKind kSalesRegister, kPurchaseRegister, kReceiptsRegister;

// What is to be told to the user, in the order of the rows.
struct RegisterNotice {
  enum class About { missingCode, gap } about;
  std::string text;
};

struct Register {
  std::vector<RegisterRow> rows;  // by number (receipts by date), within a number in the order of posting
  std::vector<VatTotal> totals;   // of the slots with an amount, in the order of the table
  std::vector<RegisterNotice> notices;
};

// Sums are kept in whole cents, so that what is printed adds up. A row whose code is not in the table gives a
// notice and stands in no total. A gap is a number above the previous one plus 1, by value.
Register makeRegister(const RegisterKind& kind, std::vector<RegisterRow> rows, const VatTable& table);

// The rows of one VAT archive of the open year, in the order of the archive. A customer or supplier that is
// gone is reported, and its row stays. Nothing when the archive cannot be read to its end, which has been
// reported.
RegisterRows readSalesRows(Session& session, const RowsAsked& asked);
RegisterRows readPurchaseRows(Session& session, const RowsAsked& asked);
RegisterRows readReceiptRows(Session& session, const RowsAsked& asked);

// Each total with the rows that make it, and the sum of them all.
Trace traceOf(std::shared_ptr<const Register> content);
std::string tracedText(const RegisterRow& row);  // a row as traces name it

struct RegisterPage {
  std::string registro, month, year;  // as the title line names them
  ui::Letterhead letterhead;
};

// The register on paper: title and headings on each page, the rows, the totals (of purchases in groups by
// kind). The letters are made smaller than `setup` asks where a line would not fit the sheet.
std::shared_ptr<const ui::Report> layOut(const RegisterKind& kind, const Register& content,
                                         const RegisterPage& page, ui::Setup setup);

}  // namespace tarvex
