// The VAT rows of entries: the archives iv, ia and ic as one, for those to whom it does not matter which.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "archives/mc.h"
#include "session/session.h"
#include "vat/totals.h"

namespace tarvex {

// Where the VAT rows of such an entry stand; nothing when it has none.
std::optional<VatSide> vatSideOf(std::string_view causale);

// The number of a document as the registers keep it: its last five digits, zeros in front.
std::string registerNumber(std::string_view number);

// What tells the VAT rows of one entry from all others.
struct VatDocument {
  VatSide side;
  std::string chiavereg;  // register and number; of purchases, register and protocol
  std::string datareg;    // yyyymmdd
  std::string conto;      // the customer or supplier; receipts do not ask for it
};

// Of the entry whose first line this is; nothing when entries of its kind have no VAT rows.
std::optional<VatDocument> vatDocumentOf(const rec::mc& firstLine);

// Whether a VAT row bears that number in that register. Rows of `except` do not count.
bool isNumberTaken(Session& session, VatSide side, std::string_view chiavereg,
                   const std::optional<VatDocument>& except = {});

// Whether a VAT row of sales bears that number of five digits in any register. Rows of `except` do not count.
bool isSalesNumberTaken(Session& session, std::string_view numero,
                        const std::optional<VatDocument>& except = {});

// Deletes the VAT rows of an entry; part of a group that the caller has opened.
void removeVatRows(Session& session, const VatDocument& document);

}  // namespace tarvex
