// Registrazione corrispettivo, and its revision.
#include "ledger/forms.h"
#include "ledger/invoice_form.h"

namespace tarvex {
namespace {

constexpr InvoiceKind kReceipt{"mcco", "Registrazione corrispettivo", "co", VatSide::receipts};
constexpr InvoiceKind kReceiptRevised{.unit = "mcco2",
                                      .title = "Revisione corrispettivo",
                                      .causale = "co",
                                      .side = VatSide::receipts,
                                      .revision = true};

}  // namespace

std::unique_ptr<ui::Form> makeMcco(Session& session) { return makeInvoiceForm(session, kReceipt); }
std::unique_ptr<ui::Form> makeMcco2(Session& session) { return makeInvoiceForm(session, kReceiptRevised); }

}  // namespace tarvex
