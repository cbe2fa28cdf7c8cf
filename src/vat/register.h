// The VAT registers as values: what one month of a register holds, computed from its rows, and how it is laid
// out on paper. Nothing here asks the user or writes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "ui/report.h"
#include "vat/vat_table.h"

namespace tarvex {

// One VAT row of a document.
struct RegisterRow {
  long posted = 0;      // its number in the archive: the order of posting
  std::string numero;   // of the document; of purchases the protocol
  std::string datareg;  // dd/mm/yyyy, may be empty
  std::string datadoc;  // dd/mm/yyyy
  std::string conto;    // of the customer or supplier
  std::string ragsoc;   // its name; empty when that voice is gone
  double imponibile = 0;
  std::string codiva;
  double aliquota = 0;  // percent, of the day of posting
  double imposta = 0;
  std::string note = {};  // set by makeRegister
  bool further = false;   // set by makeRegister: of the same document as the row before
};

// What tells the registers of sales, purchases and receipts apart.
struct RegisterKind {
  std::string_view name;                // of the print
  std::string_view title, month, year;  // the words of the title line, joined by the register's facts
  std::string_view heading;             // over the columns
  std::string_view gap;                 // the words of a gap in the numbers
  std::string_view counter;             // of `pr`, less the register's number: the last month printed
  std::string (*line)(const RegisterRow& row);
};
extern const RegisterKind kSalesRegister;

struct RegisterTotal {
  std::string label;  // rate and description of the code
  double imponibile = 0, imposta = 0;
};

// What is to be told to the user, in the order of the rows.
struct RegisterNotice {
  enum class About { missingCode, gap } about;
  std::string text;
};

struct Register {
  std::vector<RegisterRow> rows;      // by number, within a number in the order of posting
  std::vector<RegisterTotal> totals;  // of the slots with an amount, in the order of the table
  RegisterTotal sum;                  // of `totals`
  std::vector<RegisterNotice> notices;
};

// Sums are kept in whole cents, so that what is printed adds up. A row whose code is not in the table gives a
// notice and stands in no total. A gap is a number above the previous one plus 1, by value.
Register makeRegister(const RegisterKind& kind, std::vector<RegisterRow> rows, const VatTable& table);

// The rows of sales register `registro` ("1" to "9") in month `mese` ("01" to "12") of the open year, with
// the names of the customers. A customer that is gone is reported, and its row stays. Nothing when the
// archive cannot be read to its end, which has been reported.
std::optional<std::vector<RegisterRow>> readSalesRows(Session& session, std::string_view registro,
                                                      std::string_view mese);

struct RegisterPage {
  std::string registro, month, year;         // as the title line names them
  std::string company = {}, vatNumber = {};  // printed above the title when there is a company
  int blankLines = 0;  // left free at the top of each page, for sheets headed beforehand
};

// The register on paper: title and headings on each page, the rows, the totals. The letters are made smaller
// than `setup` asks where a line would not fit the sheet.
std::shared_ptr<const ui::Report> layOut(const RegisterKind& kind, const Register& content,
                                         const RegisterPage& page, ui::Setup setup);

}  // namespace tarvex
