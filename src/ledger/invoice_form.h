// The screen on which documents with VAT are registered, one form for all their kinds, for their revisions
// and for amounts in Lire.
#pragma once

#include <memory>

#include "ledger/invoice_entry.h"
#include "ui/form.h"

namespace tarvex {

// `kind` must outlive the form.
std::unique_ptr<ui::Form> makeInvoiceForm(Session& session, const InvoiceKind& kind);

}  // namespace tarvex
