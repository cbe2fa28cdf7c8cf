#include "duedates/conditions.h"

#include "common/text.h"
#include "session/scan.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr int kCpag = archives::Layout<rec::cpag>::code;
constexpr int kByDescription = 1;
constexpr int kLastKey = 2000;
constexpr std::size_t kIndexWidth = 40;

}  // namespace

// The index holds forty characters: behind a description cut to them others may stand.
std::optional<KeptCondition> readCondition(Session& session, std::string_view description) {
  OpenArchive<rec::cpag> cpag(session, 3530, 3531);
  const std::string cut = common::cut(description, kIndexWidth);
  store::Code code = cpag->search(kByDescription, cut);
  for (; code == store::kOk && cpag->B.descrizione.starts_with(cut); code = cpag->next(kByDescription))
    if (cpag->B.descrizione == description) return KeptCondition{cpag->primaryKey(), cpag->B};
  if (code != store::kOk && code != store::kNotFound)
    session.CheckArchiveResult(Operation::read, kCpag, 3532);
  return {};
}

std::vector<KeptCondition> readConditions(Session& session) {
  std::vector<KeptCondition> all;
  scanBy<rec::cpag>(session, kByDescription, 3533, 3534, 3535, [&](const archives::Archive<rec::cpag>& cpag) {
    all.push_back({cpag.primaryKey(), cpag.B});
  });
  return all;
}

bool addCondition(Session& session, const rec::cpag& condition) {
  OpenArchive<rec::cpag> cpag(session, 3536, 3537);
  if (!cpag->isOpen()) return false;
  cpag->A = condition;
  for (int number = 1; number <= kLastKey; ++number) {
    const std::string key = common::zeroFill(number, 4);
    if (cpag->search(0, key) == store::kOk) continue;
    if (cpag->put(key, store::Put::add) == store::kExists) continue;  // another station was faster
    session.CheckArchiveResult(Operation::write, kCpag, 3538);
    const bool added = session.store.LastArchiveResult == store::kOk;
    cpag->flush();
    return added;
  }
  session.desk().beep();  // every number is taken
  return false;
}

void removeCondition(Session& session, std::string_view key) {
  OpenArchive<rec::cpag> cpag(session, 3539, 3540);
  cpag->erase(key);
  session.CheckArchiveResult(Operation::erase, kCpag, 3541);
  cpag->flush();
}

}  // namespace tarvex
