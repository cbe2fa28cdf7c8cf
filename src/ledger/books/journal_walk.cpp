#include "ledger/books/journal_walk.h"

#include <algorithm>
#include <utility>

#include "common/date.h"
#include "common/text.h"

namespace tarvex {
namespace {

constexpr int kByNumber = 0, kByDate = 1, kByDocument = 10, kByVoice = 11;

}  // namespace

JournalWalk::JournalWalk(Session& session, int index, std::string from, std::string to)
    : session_(session), mc_(session, 2600, 2601), index_(index), to_(std::move(to)) {
  if (!mc_->isOpen()) return;
  if (from.empty())
    mc_->bof(index);
  else
    standsOnFirst_ = mc_->search(index, from) == store::kOk;
}

JournalWalk JournalWalk::byDate(Session& session, const DateRange& range) {
  return {session, kByDate, range.from, range.to};
}

JournalWalk JournalWalk::byVoice(Session& session, std::string_view conto, const DateRange& range) {
  return {session, kByVoice, std::string(conto) + range.from, std::string(conto) + range.to};
}

JournalWalk JournalWalk::byDocument(Session& session, std::string_view conto) {
  return {session, kByDocument, std::string(conto), std::string(conto)};
}

JournalWalk JournalWalk::byVoices(Session& session) { return {session, kByVoice, {}, {}}; }

JournalWalk JournalWalk::byNumber(Session& session) { return {session, kByNumber, {}, {}}; }

const rec::mc* JournalWalk::next() {
  if (!mc_->isOpen() || whole_) return nullptr;
  const store::Code result = standsOnFirst_ ? store::kOk : mc_->next(index_);
  standsOnFirst_ = false;
  if (result == store::kOk && std::string_view(mc_->indexKey()).substr(0, to_.size()) <= to_) return &mc_->B;
  whole_ = result == store::kOk || result == store::kNotFound;
  if (!whole_) session_.CheckArchiveResult(store::Operation::read, mc_->code, 2602);
  return nullptr;
}

VoiceNames::VoiceNames(Session& session) : session_(session), pc_(session, 2603, 2604) {}

const std::string& VoiceNames::of(const std::string& code) {
  const auto [found, isNew] = names_.try_emplace(code);
  if (!isNew || !pc_->isOpen()) return found->second;
  if (pc_->search(0, code) == store::kOk)
    found->second = pc_->B.ragsoc;
  else
    session_.CheckArchiveResult(store::Operation::read, pc_->code, 2605);
  return found->second;
}

bool isOpeningPosted(Session& session) {
  session.ct.search(0, "1");
  session.CheckArchiveResult(store::Operation::read, session.ct.code, 2615);
  return session.store.LastArchiveResult == store::kOk && session.ct.B.bapflag == "n";
}

std::size_t journalRows(Session& session) {
  const bool found = session.pr.search(0, "mc") == store::kOk;
  return found ? static_cast<std::size_t>(std::max(0, session.pr.B.valore)) : 0;
}

std::string dateOf(std::string_view key) { return common::SlashDate(common::KeyToDate(key)); }

std::string documentOf(const rec::mc& row) {
  return common::fit(row.numdoc, 6, common::Align::right) + " " + common::fit(dateOf(row.datadoc), 10);
}

std::string protocolOf(const rec::mc& row) {
  return common::numberValue(row.protocollo) == 0 ? std::string() : row.protocollo;
}

}  // namespace tarvex
