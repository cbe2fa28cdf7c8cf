#include "ledger/due_rules.h"

#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

#include "archives/mc.h"
#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "duedates/due_ledgers.h"
#include "session/scan.h"

namespace tarvex {
namespace {

std::string recordOf(const DueDate& due) {
  const std::string ledger = due.ledger == DueLedger::sd ? "sd" : due.ledger == DueLedger::st ? "st" : "sf";
  return ledger + " " + due.key;
}

// Account, number by its last five characters, date, sign.
std::string keyOf(std::string_view conto, std::string_view numero, std::string_view date, bool negative) {
  const double number = common::numberValue(common::right(numero, 5));
  return std::string(conto) + "/" + common::numberText(number) + "/" + std::string(date) +
         (negative ? "-" : "");
}

struct Journal {
  std::unordered_map<std::string, double> documents;  // signed amount by key; several may share one
  std::set<std::string> closings;                     // "account/date" of collections and payments
};

// The first line of an entry is the one on the customer or supplier. Of an open item that came over from
// another year a part may have been paid there.
void addDocument(Journal& journal, const archives::Archive<rec::mc>& mc, std::string_view year) {
  const rec::mc& row = mc.B;
  if (!row.datareg.starts_with(year)) return;
  const bool sale = row.causale == "fv" || row.causale == "cv";
  const bool purchase = row.causale == "fa" || row.causale == "ca";
  if ((!sale && !purchase) || common::numberValue(row.nummov) != common::numberValue(mc.primaryKey())) return;
  const double amount = sale ? row.dare - row.avere : row.avere - row.dare;
  journal.documents[keyOf(row.conto, row.numdoc, sale ? row.datareg : row.datadoc, amount < 0)] += amount;
}

// What the ledgers and the journal say; nothing when one of them cannot be read.
struct Dues {
  Journal journal;
  std::vector<DueDate> all;
};

std::optional<Dues> readDues(Session& session) {
  Dues dues;
  Journal& journal = dues.journal;
  const bool whole = scan<rec::mc>(session, 2410, 2411, 2412, [&](const archives::Archive<rec::mc>& mc) {
    addDocument(journal, mc, session.WorkYear);
    if (mc.B.causale == "if" || mc.B.causale == "pf")
      journal.closings.insert(mc.B.conto + "/" + mc.B.datareg);
  });
  if (!whole) return {};
  for (const DueLedger ledger : kDueLedgers) {
    auto read = readDueDates(session, ledger, "");
    if (!read) return {};
    std::move(read->begin(), read->end(), std::back_inserter(dues.all));
  }
  return dues;
}

std::vector<Violation> unreadable() {
  return {{{}, "la prima nota o uno scadenzario non si legge", {}, 0}};
}

struct Document {
  double sum = 0;
  std::vector<std::string> records;
};

std::vector<Violation> checkSums(Session& session) {
  const auto dues = readDues(session);
  if (!dues) return unreadable();
  std::map<std::string, Document> documents;
  for (const DueDate& due : dues->all) {
    Document& document = documents[keyOf(due.conto, due.numero, due.datafatt, due.importo < 0)];
    document.sum = common::roundBalance(document.sum + due.importo);
    document.records.push_back(recordOf(due));
  }
  std::vector<Violation> violations;
  for (const auto& [key, document] : documents) {
    const auto invoice = dues->journal.documents.find(key);
    if (invoice == dues->journal.documents.end()) continue;
    const double difference = common::roundBalance(document.sum - invoice->second);
    if (difference == 0) continue;
    violations.push_back({{},
                          "le scadenze del documento " + key + " fanno " + common::toText(document.sum) +
                              ", la registrazione " + common::toText(invoice->second),
                          document.records,
                          difference});
  }
  return violations;
}

std::vector<Violation> checkClosed(Session& session) {
  const auto dues = readDues(session);
  if (!dues) return unreadable();
  std::vector<Violation> violations;
  for (const DueDate& due : dues->all) {
    if (isOpen(due) || dues->journal.closings.contains(due.conto + "/" + due.pagamento)) continue;
    violations.push_back({{},
                          "la scadenza del conto " + due.conto + " è chiusa al " +
                              common::SlashDate(common::KeyToDate(due.pagamento)),
                          {recordOf(due)},
                          due.importo});
  }
  return violations;
}

constexpr Rule kRules[] = {
    {"instalments sum to their invoice", "Le scadenze fanno la loro fattura", "Scadenzari, Variazione",
     checkSums},
    {"a closed instalment has its collection", "Ogni scadenza chiusa ha il suo incasso o pagamento",
     "Prima nota, Incasso o Pagamento fattura", checkClosed},
};

}  // namespace

std::span<const Rule> dueRules() { return kRules; }

}  // namespace tarvex
