#include "chart/account_field.h"

#include <algorithm>
#include <vector>

#include "chart/names.h"
#include "common/text.h"
#include "session/checks.h"
#include "ui/user.h"

namespace tarvex {
namespace {

constexpr NameRun kAllVoices{1, {}};
constexpr std::size_t kCompletedFrom = 3;  // characters typed

using KindList = std::vector<std::string>;

bool isOneOf(const KindList& kinds, const std::string& kind) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

bool isCompleted(const rec::pc& voice, const KindList& kinds, const std::string& typed) {
  return isOneOf(kinds, voice.tipo) && beginsWith(voice.ragsoc, typed);
}

// The first voice at or behind what was typed decides, and one of the wrong kind completes nothing. Where
// none begins so, the other spellings of the text are tried.
std::string completion(Session& session, const KindList& kinds, const std::string& typed) {
  if (common::length(typed) < kCompletedFrom) return {};
  const rec::pc& voice = session.pc.B;
  if (firstName(session, kAllVoices, typed) && beginsWith(voice.ragsoc, typed))
    return isOneOf(kinds, voice.tipo) ? voice.ragsoc : std::string();
  for (const std::string& spelled : spellingsOf(session, kAllVoices, typed).found)
    if (firstName(session, kAllVoices, spelled) && isCompleted(voice, kinds, typed)) return voice.ragsoc;
  return {};
}

// The next completion, or the one before, in the order of the index.
std::string neighbour(Session& session, const KindList& kinds, const std::string& typed,
                      const std::string& shown, int way) {
  const rec::pc& voice = session.pc.B;
  if (!firstName(session, kAllVoices, shown)) return {};
  while (way > 0 ? nextName(session, kAllVoices) : previousName(session, kAllVoices)) {
    if (!beginsWith(voice.ragsoc, typed)) return {};
    if (isOneOf(kinds, voice.tipo)) return voice.ragsoc;
  }
  return {};
}

// Without what a completion has added behind it.
std::string typedText(const ui::Field& field) {
  const ui::Edit& edit = field.edit();
  const std::size_t from = std::min(edit.cursor, edit.mark);
  const bool selectedToEnd = std::max(edit.cursor, edit.mark) == edit.text.size();
  return from > 0 && selectedToEnd ? edit.text.substr(0, from) : edit.text;
}

void searchInto(Session& session, ui::Field& field, SearchList list) {
  const std::string chosen = searchAccount(session, list, typedText(field));
  if (chosen.empty()) return;
  field.setText(chosen);
  ui::User(field.form()).enter();
}

bool isRead(Session& session, store::Code result, int position) {
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, session.pc.code, position);
  return result == store::kOk;
}

}  // namespace

void accountField(Session& session, ui::Field& field, Kinds kinds, SearchList list) {
  const KindList taken(kinds.begin(), kinds.end());
  field.hint = kSearchHint;
  field.on(ui::Key::F5, [&session, &field, list] { searchInto(session, field, list); });
  if (session.param.completamento != 1) return;
  field.complete = [&session, taken](const std::string& typed) { return completion(session, taken, typed); };
  field.browse = [&session, taken](const std::string& typed, const std::string& shown, int way) {
    return neighbour(session, taken, typed, shown, way);
  };
}

bool readVoice(Session& session, std::string_view description, int position) {
  const store::Code result = session.pc.search(1, common::cut(description, kNameWidth));
  return isRead(session, result, position) && session.pc.B.ragsoc == description;
}

bool readVoiceByCode(Session& session, std::string_view code, int position) {
  return isRead(session, session.pc.search(0, code), position);
}

}  // namespace tarvex
