// The listings of the journal: its rows with their voices, closed by what they come to.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ledger/books/journal_walk.h"
#include "ui/report.h"

namespace tarvex {

struct ListedKind {
  std::string_view name, causale;  // an empty one: of all kinds
};
inline constexpr ListedKind kListedKinds[] = {
    {"Tutti", ""},
    {"Fattura vendita", "fv"},
    {"Fattura acquisto", "fa"},
    {"Nota credito forn.", "ca"},
    {"Nota cred. cliente", "cv"},
    {"Incasso fattura", "if"},
    {"Pagamento fattura", "pf"},
    {"Corrispettivo", "co"},
    {"Mov. generico", "mg"},
};

// "PRIMA NOTA": the rows of a period, of all kinds or of one. Nothing when the user stops it or the journal
// cannot be read, which has been reported.
std::shared_ptr<const ui::Report> layOutEntries(Session& session, const DateRange& period,
                                                const ListedKind& kind, ui::Setup setup);

// "CONTROLLO PRIMA NOTA": every row under its own number and that of its entry, with a word where an entry
// does not balance.
std::shared_ptr<const ui::Report> layOutControl(Session& session, ui::Setup setup);

}  // namespace tarvex
