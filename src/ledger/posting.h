// Posting to the journal: the one way in which an entry, its VAT rows and its screen rows are written and the
// progressives of the chart follow. Shared by every registration screen, by their revisions and by whoever
// posts without a screen. What takes an entry back stands in ledger/removal.h.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/tt.h"
#include "duedates/generate.h"
#include "session/session.h"

namespace tarvex {

// Adds 1 to the counter `name` of `pr` and gives the new value. The caller holds the lock that guards the
// counter ("mc" for all the counters of posting).
std::int32_t ProssimoNumero(Session& session, std::string_view name);

// Adds to the progressives of the voice, then of its mastro, then of its conto, each under its record lock:
// `dare` += dare, `avere` += avere, `saldo` = `saldoiniziale` + `dare` - `avere`. Rounds nothing; a reversal
// passes the amounts negated.
void AggiornaProgressivi(Session& session, std::string_view codice, double dare, double avere);

// Writes `mc.A` as a journal row under `number`, or, while that is taken, under the next one drawn, and
// brings the progressives of its voice up to date.
void ScriviRigaGiornale(Session& session, archives::Archive<rec::mc>& mc, std::int32_t number);

// Writes the buffer A as a VAT row under the next number of its counter ("iv", "ia", "ic"), with the rate of
// its code as it is now.
void ScriviRigaIva(Session& session, archives::Archive<rec::iv>& iv);
void ScriviRigaIva(Session& session, archives::Archive<rec::ia>& ia);
void ScriviRigaIva(Session& session, archives::Archive<rec::ic>& ic);

// A filled row of the entry screen, as typed, for its reopening.
struct EntryRow {
  std::string voce, testo, codice, importo;
};

// Writes one `tt` record for each row, under the next numbers of the counter "dati".
void ScriviDatiEntrata(Session& session, archives::Archive<rec::tt>& tt, std::int32_t nummov,
                       const std::vector<EntryRow>& rows);

// What all lines of an entry share. Dates as on the screen, dd/mm/yyyy.
struct EntryHead {
  std::string causale;  // "fv", "fa", "ca", "cv", "if", "pf", "co", "mg", "ce", "cp"
  std::string datareg, datadoc;
  std::string numdoc;            // six digits
  std::string protocollo;        // five digits, of a purchase
  std::string registro;          // "1" to "9", empty when none
  std::int16_t daemissione = 0;  // 1: posted by the emission of a document
};

struct EntryLine {
  std::string conto;           // code of the voice
  double dare = 0, avere = 0;  // one of the two is 0
  std::string descrizione;
  std::string datadoc = {}, numdoc = {};  // in place of the head's, where they are not empty
};

// The greatest number given in a register so far, which its counter in `pr` keeps.
struct RegisterCounter {
  std::string name;         // "prot1" to "prot9", "co1" to "co9"; empty: the register keeps none
  std::int32_t number = 0;  // of this entry
};

struct Entry {
  EntryHead head;
  std::vector<EntryLine> lines;  // in the order of writing; at least one
  std::vector<rec::iv> sales;    // VAT rows, all in one of the three; `aliquota` is filled in at posting
  std::vector<rec::ia> purchases;
  std::vector<rec::ic> receipts;
  std::vector<EntryRow> rows;
  RegisterCounter counter = {};
};

// Appends a grouped line to the entry: a positive sum on the side that `credit` names, a negative one on the
// other side with its sign changed, none for zero. Sums are rounded to cents.
void addGroupedLine(Entry& entry, std::string_view conto, double sum, bool credit,
                    std::string_view descrizione);

enum class Posted {
  done,
  failed,  // reported already
  taken,   // a VAT row of another entry has the number of this one in its register
  gone,    // the entry to be replaced is not in the journal any more
};

// What else happens together with the posting.
struct PostingOptions {
  std::string replaces = {};        // `nummov` of an entry that is taken back first: the one revised
  DueDates dues = {};               // what the entry makes due; what it replaces keeps its payments
  std::function<void()> also = {};  // writes what else belongs to the entry elsewhere; no box
};

// Posts the entry under the lock of its register's counter, as one group: the lock "mc" of `pr`; the removal
// of the entry that it replaces; whether the number is still free in its register; the number of the entry;
// each line followed by its progressives; the VAT rows with the rate of their code in force now; the rows of
// the screen; the counter of the register, when the number is greater; the due dates; `also`. All of it or,
// with any other outcome than `done`, nothing: then the screen keeps what it shows. The busy pointer shows
// meanwhile.
Posted postEntry(Session& session, const Entry& entry, const PostingOptions& options = {});

}  // namespace tarvex
