// Registrazione fattura acquisto and nota credito fornitore, their revisions, and both in Lire.
#include "ledger/forms.h"
#include "ledger/invoice_form.h"

namespace tarvex {
namespace {

constexpr InvoiceKind kInvoice{"MCFA", "Registrazione fattura acquisto", "fa", VatSide::purchases};
constexpr InvoiceKind kInvoiceRevised{.unit = "MCFA2",
                                      .title = "Revisione fattura acquisto",
                                      .causale = "fa",
                                      .side = VatSide::purchases,
                                      .revision = true};
constexpr InvoiceKind kInvoiceInLire{.unit = "MCFA3",
                                     .title = "Registrazione fattura acquisto in Lire",
                                     .causale = "fa",
                                     .side = VatSide::purchases,
                                     .lire = true};
constexpr InvoiceKind kCreditNote{.unit = "mcca",
                                  .title = "Registrazione nota credito fornitore",
                                  .causale = "ca",
                                  .side = VatSide::purchases,
                                  .creditNote = true};
constexpr InvoiceKind kCreditNoteRevised{.unit = "mcca2",
                                         .title = "Revisione nota credito fornitore",
                                         .causale = "ca",
                                         .side = VatSide::purchases,
                                         .creditNote = true,
                                         .revision = true};
constexpr InvoiceKind kCreditNoteInLire{.unit = "mcca3",
                                        .title = "Registrazione nota credito fornitore in Lire",
                                        .causale = "ca",
                                        .side = VatSide::purchases,
                                        .creditNote = true,
                                        .lire = true};

}  // namespace

std::unique_ptr<ui::Form> makeMcfa(Session& session) { return makeInvoiceForm(session, kInvoice); }
std::unique_ptr<ui::Form> makeMcfa2(Session& session) { return makeInvoiceForm(session, kInvoiceRevised); }
std::unique_ptr<ui::Form> makeMcfa3(Session& session) { return makeInvoiceForm(session, kInvoiceInLire); }
std::unique_ptr<ui::Form> makeMcca(Session& session) { return makeInvoiceForm(session, kCreditNote); }
std::unique_ptr<ui::Form> makeMcca2(Session& session) { return makeInvoiceForm(session, kCreditNoteRevised); }
std::unique_ptr<ui::Form> makeMcca3(Session& session) { return makeInvoiceForm(session, kCreditNoteInLire); }

}  // namespace tarvex
