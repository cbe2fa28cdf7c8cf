// Revising an entry of the journal. A revision form is the registration form of its kind, opened with an
// entry:
// - reviseEntry() chooses the form by the kind of the entry and runs it; the form's Revision, made in its
//   constructor, takes the entry over, and the form fills its controls from it when it loads;
// - "&Registra" hands nummov() to postEntry as the entry to be replaced: the removal of the old entry and the
//   new one are one group, so that no crash loses both;
// - leaving asks first, for it removes the entry: a form opened to revise ends with a new entry or with none.
// Until then the entry stands as it is. The numbers that it holds in its registers are free for the form.
#pragma once

#include <optional>
#include <string>

#include "ledger/posting.h"
#include "ledger/removal.h"
#include "ledger/vat_rows.h"
#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

class Revision {
 public:
  // `wanted`: the form is one that revises. It takes the entry that reviseEntry() has left in the session;
  // there is none when the form was opened in any other way, and then it registers like the original.
  Revision(Session& session, bool wanted);

  const std::optional<JournalEntry>& entry() const { return entry_; }
  std::string nummov() const { return entry_ ? entry_->nummov : std::string(); }
  std::optional<VatDocument> document() const;  // its VAT rows

  // From the form's mayClose(): asks whether to leave without the entry, and removes it on a yes.
  bool mayLeave();

  // What follows the posting of any registration form: another station's removal is told, and a form whose
  // entry has been replaced closes. True when it has registered and is to be cleared for the next entry.
  bool goesOn(Posted posted, ui::Form& form);

 private:
  void done() { entry_.reset(); }  // the entry has been replaced, or is gone: nothing is asked any more

  Session& session_;
  std::optional<JournalEntry> entry_;
};

// Runs the revision form of the entry's kind as a modal step. False when there is none of that kind.
bool reviseEntry(Session& session, std::string_view causale, const std::string& nummov);

// Shows that another station has revised or removed the entry meanwhile.
void tellEntryGone(Session& session);

// The name of a voice by its code; empty when it is gone.
std::string voiceName(Session& session, std::string_view code);

// A date of the journal as the screens show it: yyyymmdd to dd/mm/yyyy.
std::string screenDate(std::string_view key);

// A number without the zeros in front.
std::string plainNumber(std::string_view number);

}  // namespace tarvex
