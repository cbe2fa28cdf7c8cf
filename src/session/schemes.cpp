#include "session/schemes.h"

#include <map>

#include "common/csv.h"
#include "common/text.h"
#include "session/scan.h"

namespace tarvex {
namespace {

using store::Operation;

constexpr int kAx = archives::Layout<rec::ax>::code;
constexpr std::size_t kKeyLength = 30;

std::string keyOf(std::string_view name) { return common::cut(name, kKeyLength); }

// The columns of the file: causale, riga (from 1), conto, agg, segno.
std::map<std::string, rec::ax> readySchemes(const Session& session) {
  std::map<std::string, rec::ax> schemes;
  const auto table = common::readCsv((session.options().offeredData / "causali.csv").string());
  if (!table) return schemes;
  for (const auto& cells : table->rows) {
    if (cells.size() < 5) continue;
    const auto row = static_cast<int>(common::numberValue(cells[1]));
    if (row < 1 || row > rec::ax::kRows) continue;
    rec::ax& scheme = schemes[cells[0]];
    scheme.nome = cells[0];
    scheme.righe[static_cast<std::size_t>(row - 1)] = {cells[2], cells[3], cells[4]};
  }
  return schemes;
}

}  // namespace

std::vector<std::string> schemeNames(Session& session) {
  std::vector<std::string> names;
  scan<rec::ax>(session, 230, 231, 232,
                [&](const archives::Archive<rec::ax>& ax) { names.push_back(ax.B.nome); });
  return names;
}

std::optional<rec::ax> readScheme(Session& session, std::string_view name) {
  OpenArchive<rec::ax> ax(session, 233, 234);
  const store::Code result = ax->search(0, keyOf(name));
  if (result == store::kOk) return ax->B;
  if (result != store::kNotFound) session.CheckArchiveResult(Operation::read, kAx, 235);
  return {};
}

bool writeScheme(Session& session, const rec::ax& scheme) {
  OpenArchive<rec::ax> ax(session, 236, 237);
  ax->A = scheme;
  ax->put(keyOf(scheme.nome), store::Put::write);
  session.CheckArchiveResult(Operation::write, kAx, 238);
  if (session.store.LastArchiveResult != store::kOk) return false;
  ax->flush();
  session.CheckArchiveResult(Operation::write, kAx, 239);
  return session.store.LastArchiveResult == store::kOk;
}

void removeScheme(Session& session, std::string_view name) {
  OpenArchive<rec::ax> ax(session, 240, 241);
  if (ax->search(0, keyOf(name)) != store::kOk) return;
  ax->erase(keyOf(name));
  session.CheckArchiveResult(Operation::erase, kAx, 242);
  ax->flush();
}

int addReadySchemes(Session& session) {
  int added = 0;
  for (const auto& [name, scheme] : readySchemes(session)) {
    if (readScheme(session, name)) continue;
    if (!writeScheme(session, scheme)) return added;
    ++added;
  }
  return added;
}

}  // namespace tarvex
