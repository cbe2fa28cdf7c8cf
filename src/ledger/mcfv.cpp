// Registrazione fattura vendita and nota credito cliente, and their revisions.
#include "ledger/forms.h"
#include "ledger/invoice_form.h"

namespace tarvex {
namespace {

constexpr InvoiceKind kInvoice{"mcfv", "Registrazione fattura vendita", "fv", VatSide::sales};
constexpr InvoiceKind kInvoiceRevised{.unit = "mcfv2",
                                      .title = "Revisione fattura vendita",
                                      .causale = "fv",
                                      .side = VatSide::sales,
                                      .revision = true};
constexpr InvoiceKind kCreditNote{.unit = "mccv",
                                  .title = "Registrazione nota credito cliente",
                                  .causale = "cv",
                                  .side = VatSide::sales,
                                  .creditNote = true};
constexpr InvoiceKind kCreditNoteRevised{.unit = "mccv2",
                                         .title = "Revisione nota credito cliente",
                                         .causale = "cv",
                                         .side = VatSide::sales,
                                         .creditNote = true,
                                         .revision = true};

}  // namespace

std::unique_ptr<ui::Form> makeMcfv(Session& session) { return makeInvoiceForm(session, kInvoice); }
std::unique_ptr<ui::Form> makeMcfv2(Session& session) { return makeInvoiceForm(session, kInvoiceRevised); }
std::unique_ptr<ui::Form> makeMccv(Session& session) { return makeInvoiceForm(session, kCreditNote); }
std::unique_ptr<ui::Form> makeMccv2(Session& session) { return makeInvoiceForm(session, kCreditNoteRevised); }

}  // namespace tarvex
