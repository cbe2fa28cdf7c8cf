#include "chart/frequent.h"

#include "archives/catalogue.h"
#include "archives/ff.h"
#include "chart/account_field.h"
#include "session/scan.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr int kFf = archives::Layout<rec::ff>::code;

void makeWhereMissing(Session& session) {
  const archives::Entry* entry = archives::find("ff");
  const std::string stem = session.stem("ff");
  std::error_code ignored;
  if (std::filesystem::exists(stem + ".ISM", ignored)) return;
  session.store.VmxCreate(stem, entry->keyLength, std::string(entry->format));
  session.CheckArchiveResult(Operation::create, kFf, 1150);
}

}  // namespace

std::optional<std::vector<FrequentVoice>> readFrequent(Session& session) {
  makeWhereMissing(session);
  std::vector<FrequentVoice> voices;
  const bool whole = scan<rec::ff>(session, 1151, 1152, 1153, [&](const archives::Archive<rec::ff>& ff) {
    voices.push_back({ff.primaryKey(), {}, ff.B.utilizzi});
  });
  if (!whole) return {};
  for (FrequentVoice& voice : voices)
    if (session.pc.search(0, voice.code) == store::kOk) voice.name = session.pc.B.ragsoc;
  return voices;
}

void addFrequent(Session& session, const std::string& code) {
  makeWhereMissing(session);
  OpenArchive<rec::ff> ff(session, 1154, 1155);
  ff->A = {.codice = code, .riservato = {}, .utilizzi = 0};
  if (ff->put(code, store::Put::add) == store::kExists) return;
  session.CheckArchiveResult(Operation::write, kFf, 1156);
  ff->flush();
}

void removeFrequent(Session& session, const std::string& code) {
  OpenArchive<rec::ff> ff(session, 1157, 1158);
  ff->erase(code);
  session.CheckArchiveResult(Operation::erase, kFf, 1159);
  ff->flush();
}

}  // namespace tarvex
