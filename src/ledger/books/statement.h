// The statement of a customer or supplier: its documents with what was collected or paid on each.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ledger/books/book_money.h"
#include "ui/report.h"

namespace tarvex {

struct StatementRow {
  std::string document, text;  // as printed
  double dare = 0, avere = 0;
};

struct Statement {
  std::string name;
  bool isSupplier = false;
  std::vector<StatementRow> rows = {};  // those of one document together, by its date and number
  double dare = 0, avere = 0;
  double saldo() const;
};

// With `openOnly` the documents alone whose rows do not come to 0. The rows of the opening and of the closing
// entry stand for no document. Nothing when the journal cannot be read, which has been reported.
std::optional<Statement> readStatement(Session& session, const std::string& code, bool openOnly,
                                       const BookMoney& money = {});

struct StatementPage {
  bool openOnly = true;
  BookMoney money;
  std::string company;
};
std::shared_ptr<const ui::Report> layOut(const Statement& statement, const StatementPage& page,
                                         ui::Setup setup);

}  // namespace tarvex
