#include "ledger/books/voices.h"

namespace tarvex {
namespace {

constexpr int kByCode = 18, kByKindAndName = 58;

struct Run {
  int index;
  std::string_view from, kind;
};

Run runOf(VoiceKind kind) {
  switch (kind) {
    case VoiceKind::customers:
      return {kByKindAndName, "c", "c"};
    case VoiceKind::suppliers:
      return {kByKindAndName, "f", "f"};
    default:
      return {kByCode, "0", "s"};
  }
}

}  // namespace

std::optional<std::vector<std::string>> voicesOf(Session& session, VoiceKind kind) {
  const Run run = runOf(kind);
  std::vector<std::string> codes;
  auto& pc = session.pc;
  store::Code result = pc.search(run.index, run.from);
  if (result == store::kNotFound) result = pc.next(run.index);
  for (; result == store::kOk; result = pc.next(run.index)) {
    if (run.index == kByKindAndName && !pc.indexKey().starts_with(run.from)) return codes;
    if (pc.B.tipo == run.kind) codes.push_back(pc.primaryKey());
  }
  if (result == store::kNotFound) return codes;
  session.CheckArchiveResult(store::Operation::read, pc.code, 2619);
  return {};
}

}  // namespace tarvex
