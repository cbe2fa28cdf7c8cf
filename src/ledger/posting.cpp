#include "ledger/posting.h"

#include <utility>

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/removal.h"
#include "ledger/vat_rows.h"
#include "store/group.h"
#include "ui/desk.h"
#include "vat/vat_table.h"

namespace tarvex {
namespace {

using archives::Archive;
using archives::Layout;
using store::Operation;

constexpr int kMc = Layout<rec::mc>::code, kTt = Layout<rec::tt>::code;
constexpr int kPc = Layout<rec::pc>::code, kPr = Layout<rec::pr>::code;

std::string rowKey(std::int32_t number) { return common::zeroFill(number, 8); }

// The number of an entry, which its first row bears, too: a counter that was left behind passes over the rows
// there are.
std::int32_t nextEntryNumber(Session& session, Archive<rec::mc>& mc) {
  std::int32_t number = 0;
  do number = ProssimoNumero(session, "mc");
  while (mc.search(0, rowKey(number)) == store::kOk);
  return number;
}

// False when the voice cannot be read; it has been reported.
bool creditVoice(Session& session, std::string_view codice, double dare, double avere) {
  Archive<rec::pc>& pc = session.pc;
  pc.spinLock(codice);
  const bool found = pc.search(0, codice) == store::kOk;
  session.CheckArchiveResult(Operation::read, kPc, 1502);
  if (found) {
    pc.A = pc.B;
    pc.A.dare += dare;
    pc.A.avere += avere;
    pc.A.saldo = pc.A.saldoiniziale + pc.A.dare - pc.A.avere;
    pc.put(codice, store::Put::rewrite);
    session.CheckArchiveResult(Operation::write, kPc, 1503);
    pc.flush();
  }
  pc.unlock(codice);
  return found;
}

rec::mc journalRow(const EntryHead& head, const EntryLine& line, std::int32_t nummov) {
  rec::mc row;
  row.datareg = common::DateToKey(head.datareg);
  row.numdoc = line.numdoc.empty() ? head.numdoc : line.numdoc;
  row.datadoc = common::DateToKey(line.datadoc.empty() ? head.datadoc : line.datadoc);
  row.protocollo = head.protocollo;
  row.conto = line.conto;
  row.dare = line.dare;
  row.avere = line.avere;
  row.nummov = std::to_string(nummov);
  row.descrizione = line.descrizione;
  row.chiavecontodoc = row.conto + row.datadoc + row.numdoc;
  row.chiavecontodata = row.conto + row.datareg;
  row.chiavedatadoc = row.datareg + row.numdoc;
  row.causale = head.causale;
  row.registro = head.registro;
  row.daemissione = head.daemissione;
  return row;
}

void writeLines(Session& session, Archive<rec::mc>& mc, const Entry& entry, std::int32_t nummov) {
  std::int32_t number = nummov;
  for (const EntryLine& line : entry.lines) {
    if (&line != &entry.lines.front()) number = ProssimoNumero(session, "mc");
    mc.A = journalRow(entry.head, line, nummov);
    ScriviRigaGiornale(session, mc, number);
  }
}

template <class R>
void writeVatRows(Session& session, const std::vector<R>& rows, int openPosition, int closePosition) {
  if (rows.empty()) return;
  OpenArchive<R> archive(session, openPosition, closePosition);
  for (const R& row : rows) {
    archive->A = row;
    ScriviRigaIva(session, *archive);
  }
}

// Under the next number of the counter that bears the archive's name.
template <class R>
void writeVatRow(Session& session, Archive<R>& archive) {
  const auto code = readVatCode(session, archive.A.codiva);
  archive.A.aliquota = common::numberText(code ? code->aliquota : 0);
  do archive.put(common::numberText(ProssimoNumero(session, Layout<R>::prefix)), store::Put::add);
  while (session.store.LastArchiveResult == store::kExists);
  session.CheckArchiveResult(Operation::write, Layout<R>::code, 1505);
  archive.flush();
}

// `kept` is the number that the replaced entry had: what else stands under it does not keep it from its own.
bool isTaken(Session& session, const Entry& entry, std::string_view kept) {
  const auto taken = [&](VatSide side, const auto& rows) {
    return !rows.empty() && rows.front().chiavereg != kept &&
           isNumberTaken(session, side, rows.front().chiavereg);
  };
  return taken(VatSide::sales, entry.sales) || taken(VatSide::purchases, entry.purchases) ||
         taken(VatSide::receipts, entry.receipts);
}

void keepNumber(Session& session, const RegisterCounter& counter) {
  Archive<rec::pr>& pr = session.pr;
  pr.B = {};  // a counter that is not there yet starts from 0
  pr.search(0, counter.name);
  if (pr.B.valore >= counter.number) return;
  pr.A = pr.B;
  pr.A.valore = counter.number;
  pr.put(counter.name, store::Put::write);
  session.CheckArchiveResult(Operation::write, kPr, 1514);
  pr.flush();
}

// The lock of a register's counter, where there is one: taken before any group, as whoever holds it over a
// question has to.
class HeldCounter {
 public:
  HeldCounter(Session& session, const std::string& name) : session_(session), name_(name) {
    if (!name_.empty()) session_.pr.spinLock(name_);
  }
  ~HeldCounter() {
    if (!name_.empty()) session_.pr.unlock(name_);
  }
  HeldCounter(const HeldCounter&) = delete;
  HeldCounter& operator=(const HeldCounter&) = delete;

 private:
  Session& session_;
  const std::string& name_;
};

void writeEntry(Session& session, const Entry& entry) {
  OpenArchive<rec::mc> mc(session, 1508, 1509);
  const std::int32_t nummov = nextEntryNumber(session, *mc);
  writeLines(session, *mc, entry, nummov);
  writeVatRows(session, entry.sales, 1510, 1511);
  writeVatRows(session, entry.purchases, 1515, 1516);
  writeVatRows(session, entry.receipts, 1517, 1518);
  OpenArchive<rec::tt> tt(session, 1512, 1513);
  ScriviDatiEntrata(session, *tt, nummov, entry.rows);
}

}  // namespace

std::int32_t ProssimoNumero(Session& session, std::string_view name) {
  Archive<rec::pr>& pr = session.pr;
  pr.B = {};  // a counter that cannot be read must not go on from another one's value
  pr.search(0, name);
  session.CheckArchiveResult(Operation::read, kPr, 1500);
  pr.A = pr.B;
  ++pr.A.valore;
  pr.put(name, store::Put::write);
  session.CheckArchiveResult(Operation::write, kPr, 1501);
  pr.flush();
  return pr.A.valore;
}

void AggiornaProgressivi(Session& session, std::string_view codice, double dare, double avere) {
  if (!creditVoice(session, codice, dare, avere)) return;
  const std::string mastro = session.pc.B.mastro, conto = session.pc.B.conto;
  creditVoice(session, mastro, dare, avere);
  creditVoice(session, conto, dare, avere);
}

void ScriviRigaGiornale(Session& session, Archive<rec::mc>& mc, std::int32_t number) {
  while (mc.put(rowKey(number), store::Put::add) == store::kExists) number = ProssimoNumero(session, "mc");
  session.CheckArchiveResult(Operation::write, kMc, 1504);
  mc.flush();
  AggiornaProgressivi(session, mc.A.conto, mc.A.dare, mc.A.avere);
}

void ScriviRigaIva(Session& session, Archive<rec::iv>& iv) { writeVatRow(session, iv); }
void ScriviRigaIva(Session& session, Archive<rec::ia>& ia) { writeVatRow(session, ia); }
void ScriviRigaIva(Session& session, Archive<rec::ic>& ic) { writeVatRow(session, ic); }

void ScriviDatiEntrata(Session& session, Archive<rec::tt>& tt, std::int32_t nummov,
                       const std::vector<EntryRow>& rows) {
  for (const EntryRow& row : rows) {
    tt.A = {std::to_string(nummov), row.voce, row.testo, row.codice, row.importo};
    do tt.put(rowKey(ProssimoNumero(session, "dati")), store::Put::add);
    while (session.store.LastArchiveResult == store::kExists);
    session.CheckArchiveResult(Operation::write, kTt, 1506);
    tt.flush();
  }
}

void addGroupedLine(Entry& entry, std::string_view conto, double sum, bool credit,
                    std::string_view descrizione) {
  sum = common::roundBalance(sum);
  if (sum == 0) return;
  if (sum < 0) credit = !credit;
  const double amount = sum < 0 ? -sum : sum;
  entry.lines.push_back(
      {std::string(conto), credit ? 0 : amount, credit ? amount : 0, std::string(descrizione)});
}

Posted postEntry(Session& session, const Entry& entry, const PostingOptions& options) {
  const ui::Busy busy(session.desk());
  const HeldCounter counter(session, entry.counter.name);
  store::Group group(session.store, session.groupLog(), kMc, 1507);
  session.pr.spinLock("mc");
  std::vector<DueDate> replaced;
  std::string kept;
  if (!options.replaces.empty()) {
    const auto old = readEntry(session, options.replaces);
    if (!old) return Posted::gone;
    replaced = takeBack(session, *old);
    if (const auto document = vatDocumentOf(old->lines.front())) kept = document->chiavereg;
  }
  if (isTaken(session, entry, kept)) return Posted::taken;
  writeEntry(session, entry);
  if (!entry.counter.name.empty()) keepNumber(session, entry.counter);
  writeDueDates(session, options.dues, std::move(replaced));
  if (options.also) options.also();
  session.pr.unlock("mc");
  return group.commit() ? Posted::done : Posted::failed;
}

}  // namespace tarvex
