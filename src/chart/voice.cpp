#include "chart/voice.h"

#include "common/text.h"

namespace tarvex {
namespace {

constexpr std::string_view kCounter = "conto";

// False when the last operation on `pr` failed.
bool sound(Session& session, store::Operation operation, store::Code result, int position) {
  if (result == store::kOk) return true;
  session.CheckArchiveResult(operation, session.pr.code, position);
  return false;
}

bool advanceCounter(Session& session) {
  if (!sound(session, store::Operation::read, session.pr.search(0, kCounter), 1020)) return false;
  session.pr.A = session.pr.B;
  ++session.pr.A.valore;
  if (!sound(session, store::Operation::write, session.pr.put(kCounter, store::Put::write), 1021))
    return false;
  return sound(session, store::Operation::write, session.pr.flush(), 1022);
}

}  // namespace

void setCode(rec::pc& voice, std::string_view code) {
  constexpr std::string_view none = "00000";
  if (voice.tipo == "m") voice.mastro = code;
  if (voice.tipo == "cc") voice.conto = code;
  voice.codice = voice.mastro;
  voice.codice += voice.tipo == "m" ? none : voice.conto;
  voice.codice += voice.tipo == "m" || voice.tipo == "cc" ? none : code;
}

void setGroupKeys(rec::pc& voice) {
  const bool party = voice.tipo == "c" || voice.tipo == "f", agent = voice.tipo == "ag";
  const bool level = voice.tipo == "m" || voice.tipo == "cc";
  voice.chiavetipo = (level ? "x" : voice.tipo) + voice.ragsoc;
  voice.chiavegruppo = (party ? "cf" : agent ? "ag" : "ss") + voice.ragsoc;
}

std::string drawVoiceNumber(Session& session) {
  session.pr.spinLock(kCounter);
  const bool drawn = advanceCounter(session);
  std::string code = drawn ? common::zeroFill(session.pr.A.valore, 5) : std::string();
  session.pr.unlock(kCounter);
  return code;
}

std::string addVoice(Session& session, std::string code) {
  while (!code.empty()) {
    setCode(session.pc.A, code);
    const store::Code result = session.pc.put(code, store::Put::add);
    if (result == store::kOk) break;
    if (result != store::kExists) {
      session.CheckArchiveResult(store::Operation::write, session.pc.code, 1030);
      return {};
    }
    code = drawVoiceNumber(session);
  }
  if (code.empty() || session.pc.flush() == store::kOk) return code;
  session.CheckArchiveResult(store::Operation::write, session.pc.code, 1031);
  return {};
}

}  // namespace tarvex
