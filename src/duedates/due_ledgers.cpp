#include "duedates/due_ledgers.h"

#include <algorithm>
#include <utility>

#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/st.h"
#include "common/amount.h"
#include "common/text.h"

namespace tarvex {
namespace {

using archives::Archive;
using archives::Layout;
using store::Operation;

constexpr int kByAccount = 3, kByDate = 5;

template <class R>
constexpr DueLedger kLedger = DueLedger::sd;
template <>
constexpr DueLedger kLedger<rec::st> = DueLedger::st;
template <>
constexpr DueLedger kLedger<rec::sf> = DueLedger::sf;

// Calls `use` as of the record type of the ledger.
template <class Use>
auto inLedger(DueLedger ledger, const Use& use) {
  switch (ledger) {
    case DueLedger::st:
      return use.template operator()<rec::st>();
    case DueLedger::sf:
      return use.template operator()<rec::sf>();
    case DueLedger::sd:
      break;
  }
  return use.template operator()<rec::sd>();
}

std::string_view counterOf(DueLedger ledger) {
  switch (ledger) {
    case DueLedger::st:
      return "scaclitr";
    case DueLedger::sf:
      return "scafornrd";
    case DueLedger::sd:
      break;
  }
  return "scaclird";
}

template <class R>
DueDate dueDateOf(const Archive<R>& archive) {
  const R& record = archive.B;
  DueDate due{kLedger<R>,   archive.primaryKey(), record.numero,  record.datafatt,
              record.conto, record.importo,       record.scadenza};
  if constexpr (requires { record.pagamento; }) due.pagamento = record.pagamento;
  if constexpr (requires { record.tipo; }) due.tipo = record.tipo;
  if constexpr (requires { record.emessa; }) due.emessa = record.emessa;
  return due;
}

// What the ledger keeps beyond this stays as `record` has it.
template <class R>
void fill(R& record, const DueDate& due) {
  record.numero = due.numero;
  record.datafatt = due.datafatt;
  record.conto = due.conto;
  record.importo = due.importo;
  record.scadenza = due.scadenza;
  if constexpr (requires { record.pagamento; }) record.pagamento = due.pagamento;
  if constexpr (requires { record.chiaveconto; }) record.chiaveconto = due.conto + due.scadenza;
  if constexpr (requires { record.tipo; }) record.tipo = due.tipo;
  if constexpr (requires { record.emessa; }) record.emessa = due.emessa;
}

// Empty when the store failed, which has been reported.
std::string drawKey(Session& session, DueLedger ledger) {
  const std::string_view counter = counterOf(ledger);
  Archive<rec::pr>& pr = session.pr;
  pr.spinLock(counter);
  pr.B = {};  // a counter that cannot be read must not go on from another one's value
  pr.search(0, counter);
  session.CheckArchiveResult(Operation::read, pr.code, 3500);
  bool drawn = session.store.LastArchiveResult == store::kOk;
  if (drawn) {
    pr.A = pr.B;
    ++pr.A.valore;
    pr.put(counter, store::Put::rewrite);
    session.CheckArchiveResult(Operation::write, pr.code, 3501);
    drawn = session.store.LastArchiveResult == store::kOk;
    pr.flush();
  }
  pr.unlock(counter);
  return drawn ? common::zeroFill(pr.A.valore, 8) : std::string();
}

bool addUnder(Session& session, const std::string& key, const DueDate& due) {
  return inLedger(due.ledger, [&]<class R>() {
    OpenArchive<R> archive(session, 3502, 3503);
    archive->A = {};
    fill(archive->A, due);
    archive->put(key, store::Put::add);
    session.CheckArchiveResult(Operation::write, Layout<R>::code, 3504);
    const bool added = session.store.LastArchiveResult == store::kOk;
    archive->flush();
    return added;
  });
}

// Gives the instalment with the lowest key that fits, and whose `pagamento` reads `from`, the value `to`. Its
// key; empty when none fits.
std::string markInstalment(Session& session, DueLedger ledger, const InstalmentRef& instalment,
                           std::string_view from, std::string_view to) {
  const DueDate* lowest = nullptr;
  const auto all = dueDatesOf(session, ledger, instalment.conto);
  for (const DueDate& due : all) {
    if (due.pagamento != from || due.datafatt != instalment.datafatt) continue;
    if (!sameNumber(due.numero, instalment.numero)) continue;
    if (!instalment.scadenza.empty() && due.scadenza != instalment.scadenza) continue;
    if (!lowest || due.key < lowest->key) lowest = &due;
  }
  if (!lowest) return {};
  const bool marked = changeDueDate(session, ledger, lowest->key, [&](DueDate& due) { due.pagamento = to; });
  return marked ? lowest->key : std::string();
}

// All of them where no beginning comes to the amount: then some were changed by hand.
std::vector<DueDate> firstThatComeTo(const std::vector<DueDate>& dues, double amount) {
  double sum = 0;
  for (auto at = dues.begin(); at != dues.end(); ++at) {
    sum = common::roundBalance(sum + at->importo);
    if (sum == common::roundBalance(amount)) return {dues.begin(), at + 1};
  }
  return dues;
}

}  // namespace

bool sameNumber(std::string_view one, std::string_view other, std::size_t digits) {
  return common::numberValue(common::right(one, digits)) == common::numberValue(common::right(other, digits));
}

std::optional<std::vector<DueDate>> readDueDates(Session& session, DueLedger ledger, std::string_view first,
                                                 std::string_view last) {
  return inLedger(ledger, [&]<class R>() -> std::optional<std::vector<DueDate>> {
    OpenArchive<R> archive(session, 3505, 3506);
    if (!archive->isOpen()) return std::nullopt;
    std::vector<DueDate> found;
    store::Code code = archive->search(kByDate, first);
    if (code == store::kNotFound) code = archive->next(kByDate);
    for (; code == store::kOk; code = archive->next(kByDate)) {
      if (!last.empty() && archive->B.scadenza > last) return found;
      found.push_back(dueDateOf(*archive));
    }
    if (code == store::kNotFound) return found;
    session.CheckArchiveResult(Operation::read, Layout<R>::code, 3507);
    return std::nullopt;
  });
}

std::vector<DueDate> dueDatesOf(Session& session, DueLedger ledger, std::string_view conto) {
  return inLedger(ledger, [&]<class R>() {
    std::vector<DueDate> found;
    OpenArchive<R> archive(session, 3508, 3509);
    store::Code code = archive->search(kByAccount, conto);
    for (; code == store::kOk && archive->B.conto == conto; code = archive->next(kByAccount))
      found.push_back(dueDateOf(*archive));
    if (code != store::kOk && code != store::kNotFound)
      session.CheckArchiveResult(Operation::read, Layout<R>::code, 3510);
    return found;
  });
}

std::string addDueDate(Session& session, const DueDate& due) {
  std::string key = drawKey(session, due.ledger);
  if (key.empty() || !addUnder(session, key, due)) return {};
  return key;
}

void putDueDateBack(Session& session, const DueDate& due) { addUnder(session, due.key, due); }

bool changeDueDate(Session& session, DueLedger ledger, std::string_view key,
                   const std::function<void(DueDate&)>& change) {
  return inLedger(ledger, [&]<class R>() {
    OpenArchive<R> archive(session, 3511, 3512);
    archive->spinLock(key);
    const store::Code code = archive->search(0, key);
    bool changed = code == store::kOk;
    if (changed) {
      DueDate due = dueDateOf(*archive);
      change(due);
      archive->A = archive->B;
      fill(archive->A, due);
      archive->put(key, store::Put::rewrite);
      session.CheckArchiveResult(Operation::write, Layout<R>::code, 3513);
      changed = session.store.LastArchiveResult == store::kOk;
      archive->flush();
    } else if (code != store::kNotFound) {
      session.CheckArchiveResult(Operation::read, Layout<R>::code, 3514);
    }
    archive->unlock(key);
    return changed;
  });
}

void removeDueDate(Session& session, DueLedger ledger, std::string_view key) {
  inLedger(ledger, [&]<class R>() {
    OpenArchive<R> archive(session, 3515, 3516);
    archive->erase(key);
    session.CheckArchiveResult(Operation::erase, Layout<R>::code, 3517);
    archive->flush();
  });
}

std::string closeInstalment(Session& session, DueLedger ledger, const InstalmentRef& instalment,
                            std::string_view date) {
  return markInstalment(session, ledger, instalment, {}, date);
}

std::string reopenInstalment(Session& session, DueLedger ledger, const InstalmentRef& instalment,
                             std::string_view date) {
  return markInstalment(session, ledger, instalment, date, {});
}

std::vector<DueDate> removeDueDates(Session& session, const InstalmentRef& document, double amount) {
  std::vector<DueDate> found;
  for (const DueLedger ledger : kDueLedgers) {
    // Of a supplier's number, kept as typed, the journal has six digits; of a customer's five are kept.
    const std::size_t digits = ledger == DueLedger::sf ? 6 : 5;
    for (DueDate& due : dueDatesOf(session, ledger, document.conto)) {
      if (due.datafatt != document.datafatt || !sameNumber(due.numero, document.numero, digits)) continue;
      if (due.importo == 0 || (due.importo < 0) == (amount < 0)) found.push_back(std::move(due));
    }
  }
  std::ranges::stable_sort(found, {}, &DueDate::key);
  std::vector<DueDate> own = firstThatComeTo(found, amount);
  for (const DueDate& due : own) removeDueDate(session, due.ledger, due.key);
  return own;
}

}  // namespace tarvex
