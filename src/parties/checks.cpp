#include "parties/checks.h"

#include <string>

#include "session/checks.h"

namespace tarvex {
namespace {

constexpr int kByVatNumber = 4;

// The customers or suppliers among the first two voices that bear the number; both reads come before any box,
// since no place in an archive is held across one.
int sameNumber(Session& session, std::string_view number, std::string_view tipo) {
  auto& pc = session.pc;
  int count = 0;
  store::Code result = pc.search(kByVatNumber, number);
  if (result == store::kOk) {
    count += pc.B.tipo == tipo;
    result = pc.next(kByVatNumber);
    if (result == store::kOk) count += pc.B.tipo == tipo && pc.B.partitaiva == number;
  }
  if (result != store::kOk && result != store::kNotFound)
    session.CheckArchiveResult(store::Operation::read, pc.code, 4000);
  return count;
}

}  // namespace

bool emailIsRight(std::string_view address) {
  const std::size_t at = address.find('@');
  if (at == std::string_view::npos) return false;
  const std::size_t dot = address.find('.', at);
  if (dot == std::string_view::npos || dot == at + 1) return false;
  return address.find('@', at + 1) == std::string_view::npos;
}

void warnOfSameVatNumber(Session& session, std::string_view number, const PartyKind& kind) {
  const std::string text = "Già registrato un altro " + std::string(kind.noun) + " con la stessa partita iva";
  for (int left = sameNumber(session, number, kind.tipo); left > 0; --left) {
    session.desk().beep();
    session.desk().show({text, std::string(kProduct), ui::Ask::ok, ui::Icon::warning});
  }
}

}  // namespace tarvex
