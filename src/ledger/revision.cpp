#include "ledger/revision.h"

#include <array>
#include <utility>

#include "chart/account_field.h"
#include "common/date.h"
#include "session/checks.h"
#include "ui/desk.h"

namespace tarvex {
namespace {

struct RevisionForm {
  std::string_view causale, unit;
};
constexpr std::array<RevisionForm, 8> kForms{{{"fv", "mcfv2"},
                                              {"fa", "MCFA2"},
                                              {"ca", "mcca2"},
                                              {"cv", "mccv2"},
                                              {"co", "mcco2"},
                                              {"if", "MCIF2"},
                                              {"pf", "MCPF2"},
                                              {"mg", "MCMG2"}}};

}  // namespace

Revision::Revision(Session& session, bool wanted) : session_(session) {
  if (!wanted || session.EntryToRevise.empty()) return;
  entry_ = readEntry(session, std::exchange(session.EntryToRevise, {}));
}

std::optional<VatDocument> Revision::document() const {
  if (!entry_) return {};
  return vatDocumentOf(entry_->lines.front());
}

bool Revision::mayLeave() {
  if (!entry_) return true;
  if (!session_.desk().confirm(
          "Uscendo senza registrare la registrazione in revisione viene eliminata. Si vuole uscire ?",
          "Attenzione", true))
    return false;
  removeEntry(session_, entry_->nummov);
  done();
  return true;
}

bool Revision::goesOn(Posted posted, ui::Form& form) {
  if (posted == Posted::gone) tellEntryGone(session_);
  if (posted != Posted::done) return false;
  if (!entry_) return true;
  done();
  form.close();
  return false;
}

bool reviseEntry(Session& session, std::string_view causale, const std::string& nummov) {
  for (const RevisionForm& form : kForms) {
    if (form.causale != causale || !session.knows(form.unit)) continue;
    session.EntryToRevise = nummov;
    session.run(form.unit);
    session.EntryToRevise.clear();
    return true;
  }
  return false;
}

void tellEntryGone(Session& session) {
  session.desk().refuse("La registrazione è stata nel frattempo variata o eliminata da un'altra stazione");
}

std::string voiceName(Session& session, std::string_view code) {
  return readVoiceByCode(session, code, 1560) ? session.pc.B.ragsoc : std::string();
}

std::string screenDate(std::string_view key) { return common::SlashDate(common::KeyToDate(key)); }

std::string plainNumber(std::string_view number) {
  const std::size_t first = number.find_first_not_of('0');
  return std::string(first == std::string_view::npos ? std::string_view() : number.substr(first));
}

}  // namespace tarvex
