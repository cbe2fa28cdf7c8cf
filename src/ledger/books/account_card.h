// The account card: what moved a voice of the chart in a period, and its balance from row to row.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ledger/books/book_money.h"
#include "ledger/books/journal_walk.h"
#include "ui/report.h"

namespace tarvex {

struct CardRow {
  std::string date, document, protocol, text;  // as printed
  double dare = 0, avere = 0;
  double saldo = 0;  // after the row
};

struct AccountCard {
  std::string code, name;
  double opening = 0;          // of the year
  double dare = 0, avere = 0;  // progressives, from the start of the year to the end of the period
  double periodDare = 0, periodAvere = 0;  // of the rows
  std::vector<CardRow> rows = {};
  double closing() const;
  bool isBlank() const { return rows.empty() && opening == 0 && dare == 0 && avere == 0; }
};

// Where the opening entry of the year is posted, its rows take the place of the opening balance. Rows of
// other years, open items that came over, count nowhere: the opening balance holds them. Nothing when there
// is no such voice or the journal cannot be read, which has been reported.
std::optional<AccountCard> readCard(Session& session, const std::string& code, const DateRange& period,
                                    const BookMoney& money = {});

struct CardsPage {
  DateRange period;
  BookMoney money;
  std::string company;
};
std::shared_ptr<const ui::Report> layOutCards(const std::vector<AccountCard>& cards, const CardsPage& page,
                                              ui::Setup setup);

}  // namespace tarvex
