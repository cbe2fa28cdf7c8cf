#include "vat/register_state.h"

#include "common/text.h"

namespace tarvex {
namespace {

std::string counterOf(const RegisterKind& kind, std::string_view registro) {
  return std::string(kind.counter).append(registro);
}

}  // namespace

int printedMonth(Session& session, const RegisterKind& kind, std::string_view registro) {
  if (kind.counter.empty()) return 0;
  session.pr.search(0, counterOf(kind, registro));
  session.CheckArchiveResult(store::Operation::read, session.pr.code, 3020);
  if (session.store.LastArchiveResult != store::kOk) return 0;
  const double month = common::numberValue(session.pr.B.testo);
  return month >= 1 && month <= 12 ? static_cast<int>(month) : 0;
}

void keepPrintedMonth(Session& session, const RegisterKind& kind, std::string_view registro, int month) {
  const std::string key = counterOf(kind, registro);
  auto& pr = session.pr;
  pr.spinLock(key);
  pr.search(0, key);
  session.CheckArchiveResult(store::Operation::read, pr.code, 3022);
  if (session.store.LastArchiveResult == store::kOk) {
    pr.A = pr.B;
    pr.A.testo = common::zeroFill(month, 2);
    pr.put(key, store::Put::write);
    session.CheckArchiveResult(store::Operation::write, pr.code, 3023);
    pr.flush();
    session.CheckArchiveResult(store::Operation::write, pr.code, 3024);
  }
  pr.unlock(key);
}

}  // namespace tarvex
