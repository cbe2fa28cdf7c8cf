// Collections from customers and payments to suppliers as values, and the entry that each becomes. An advance
// is one without invoices.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ledger/posting.h"

namespace tarvex {

struct CollectionKind {
  std::string_view unit, title;  // of the form
  bool payment = false;          // the sides of the journal are turned round; suppliers and agents
  bool advance = false;          // no invoices: the amount stays an open item under its own document
  bool revision = false;         // opened on an entry, which it replaces

  std::string_view causale() const { return payment ? "pf" : "if"; }
};

struct CollectionRow {
  std::string numero;              // of the invoice, as typed; empty: none is closed
  std::string datafatt, scadenza;  // dd/mm/yyyy; an empty scadenza: the first one that is open
  double importo = 0, abbuono = 0;
};

struct Collection {
  std::string datareg, datadoc;  // dd/mm/yyyy
  std::string numero;            // of the document, as typed
  std::string descrizione;
  std::string conto, contropartita;  // codes
  double importo = 0;
  std::vector<CollectionRow> rows;  // those of the screen, empty ones included
};

double sumOfRows(const Collection& collection);  // without the allowances

// What the rows come to, less the amount, rounded as balances are.
double imbalance(const Collection& collection);

// The line on the contropartita; for each row with an amount a line on the customer or supplier under the
// invoice's number and date; for each allowance the customer or supplier against "Abbuoni su vendite" (00020)
// or "Abbuoni su acquisti" (00015); the rows of the screen. A negative amount stands on the other side.
Entry collectionEntry(const CollectionKind& kind, const Collection& collection);

// Closes an instalment for each row with an invoice, on the date of registration. A row that fits none leaves
// the ledger as it is. Part of the posting's group.
void closeInstalments(Session& session, const CollectionKind& kind, const Collection& collection);

// The rows as `tt` keeps them, back on the screen.
std::vector<CollectionRow> typedRows(const std::vector<rec::tt>& rows);

}  // namespace tarvex
