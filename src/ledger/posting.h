// Posting to the journal: the one way in which an entry, its VAT rows and its screen rows are written and the
// progressives of the chart follow. Shared by every registration screen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/tt.h"
#include "session/session.h"

namespace tarvex {

// Adds 1 to the counter `name` of `pr` and gives the new value. The caller holds the lock that guards the
// counter
// ("mc" for all the counters of posting).
std::int32_t ProssimoNumero(Session& session, std::string_view name);

// Adds to the progressives of the voice, then of its mastro, then of its conto, each under its record lock:
// `dare` += dare, `avere` += avere, `saldo` = `saldoiniziale` + `dare` - `avere`. Rounds nothing; a reversal
// passes the amounts negated.
void AggiornaProgressivi(Session& session, std::string_view codice, double dare, double avere);

// Writes `mc.A` as a journal row under `number` and brings the progressives of its voice up to date.
void ScriviRigaGiornale(Session& session, archives::Archive<rec::mc>& mc, std::int32_t number);

// Writes `iv.A` as a VAT row under the next number of its counter, with the rate of its code as it is now.
void ScriviRigaIva(Session& session, archives::Archive<rec::iv>& iv);

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
  std::string numdoc;  // six digits
  std::string protocollo;
  std::string registro;          // "1" to "9", empty when none
  std::int16_t daemissione = 0;  // 1: posted by the emission of a document
};

struct EntryLine {
  std::string conto;           // code of the voice
  double dare = 0, avere = 0;  // one of the two is 0
  std::string descrizione;
};

struct Entry {
  EntryHead head;
  std::vector<EntryLine> lines;  // in the order of writing
  std::vector<rec::iv> sales;    // VAT rows; `aliquota` is filled in at posting
  std::vector<EntryRow> rows;
};

// Appends a grouped line to the entry: a positive sum on the side that `credit` names, a negative one on the
// other side with its sign changed, none for zero. Sums are rounded to cents.
void addGroupedLine(Entry& entry, std::string_view conto, double sum, bool credit,
                    std::string_view descrizione);

// Posts the entry as one group: the lock "mc" of `pr`; the number of the entry; each line followed by its
// progressives; the VAT rows with the rate of their code in force now; the rows of the screen. All of it or,
// after a failure that has been reported, nothing: then false, and the screen keeps what it shows. The busy
// pointer shows meanwhile.
bool postEntry(Session& session, const Entry& entry);

}  // namespace tarvex
