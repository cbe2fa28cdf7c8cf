#include "chart/names.h"

#include <utility>

#include "common/text.h"

namespace tarvex {
namespace {

using common::cut, common::lower, common::upper;

// Walks down the characters of a text, in both cases of each, as long as some name begins so.
class SpellingWalk {
 public:
  SpellingWalk(Session& session, NameRun run) : session_(session), run_(run) {}

  // `landed` is the first key of the index that is not before `spelled`; that it begins with `spelled` is
  // known.
  void down(const std::string& spelled, std::string_view rest, const std::string& landed) {
    if (spelled.size() > result.nearest.size()) result.nearest = spelled;
    if (rest.empty()) return result.found.push_back(spelled);
    const std::string letter = cut(rest, 1);
    const std::string_view behind = rest.substr(letter.size());
    tryLetter(spelled + upper(letter), behind, landed);
    if (lower(letter) != upper(letter)) tryLetter(spelled + lower(letter), behind, landed);
  }

  Spellings result;

 private:
  void tryLetter(const std::string& spelled, std::string_view rest, const std::string& landed) {
    const std::string key = std::string(run_.group) + spelled;
    if (landed.starts_with(key)) return down(spelled, rest, landed);
    if (!firstName(session_, run_, spelled)) return;
    const std::string found = session_.pc.indexKey();
    if (found.starts_with(key)) down(spelled, rest, found);
  }

  Session& session_;
  NameRun run_;
};

// Whether a read delivered a voice of the run.
bool delivered(Session& session, NameRun run, store::Code result, int position) {
  if (result == store::kOk) return session.pc.indexKey().starts_with(run.group);
  if (result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, session.pc.code, position);
  return false;
}

std::string keyOf(NameRun run, std::string_view name) {
  return std::string(run.group) + cut(name, kNameWidth);
}

}  // namespace

Spellings spellingsOf(Session& session, NameRun run, std::string_view typed) {
  const std::string text = cut(typed, kNameWidth);
  SpellingWalk walk(session, run);
  if (firstName(session, run, {})) walk.down({}, text, session.pc.indexKey());
  std::string& nearest = walk.result.nearest;
  if (nearest.empty()) nearest = upper(cut(text, 1));  // most names begin with a capital
  nearest += std::string_view(text).substr(nearest.size());
  return std::move(walk.result);
}

bool firstName(Session& session, NameRun run, std::string_view from) {
  const store::Code result = session.pc.search(run.index, keyOf(run, from));
  if (result == store::kNotFound) return nextName(session, run);
  return delivered(session, run, result, 1000);
}

bool nextName(Session& session, NameRun run) {
  return delivered(session, run, session.pc.next(run.index), 1001);
}

bool nameBefore(Session& session, NameRun run, std::string_view place) {
  const store::Code result = session.pc.search(run.index, keyOf(run, place));
  if (result != store::kOk && result != store::kNotFound) return delivered(session, run, result, 1002);
  return previousName(session, run);
}

bool previousName(Session& session, NameRun run) {
  return delivered(session, run, session.pc.previous(run.index), 1003);
}

bool beginsWith(std::string_view name, std::string_view typed) {
  return upper(name).starts_with(upper(typed));
}

}  // namespace tarvex
