#include "session/starter_chart.h"

#include <filesystem>
#include <map>

#include "common/csv.h"
#include "common/text.h"
#include "session/predefined_accounts.h"
#include "store/group.h"

namespace tarvex {
namespace {

using store::Operation;

std::filesystem::path fileOf(const Session& session) {
  return session.options().offeredData / "piano_conti.csv";
}

// The columns of the file, parents before their children.
struct Line {
  std::string tipo, descrizione, natura, parent;
};

std::vector<Line> linesOf(const Session& session) {
  std::vector<Line> lines;
  const std::optional<common::CsvTable> table = common::readCsv(fileOf(session).string());
  if (!table || table->header.size() < 4) return lines;
  for (const auto& cells : table->rows) lines.push_back({cells[0], cells[1], cells[2], cells[3]});
  return lines;
}

class Chart {
 public:
  explicit Chart(Session& session) : session_(session) {}

  bool add() {
    if (!readCounter()) return false;
    for (const Line& line : linesOf(session_))
      if (!addVoice(line)) return false;
    return writeCounter();
  }

 private:
  bool readCounter() {
    auto& pr = session_.pr;
    pr.spinLock("conto");
    pr.search(0, "conto");
    session_.CheckArchiveResult(Operation::read, pr.code, 220);
    const bool read = session_.store.LastArchiveResult == store::kOk;
    pr.A = pr.B;
    pr.unlock("conto");  // put off to the end of the group
    return read;
  }

  bool addVoice(const Line& line) {
    auto& pc = session_.pc;
    if (pc.search(1, line.descrizione) == store::kOk) return true;
    if (line.tipo != "m" && pc.search(1, line.parent) != store::kOk) return true;
    const std::string key = common::zeroFill(session_.pr.A.valore + 1, 5);
    const std::string parent = pc.primaryKey(), mastro = line.tipo == "m" ? key : pc.B.mastro;
    const std::string conto = line.tipo == "cc" ? key : line.tipo == "s" ? parent : "";
    pc.A = recordOf({key, line.descrizione, line.tipo, line.natura, mastro, conto});
    pc.put(key, store::Put::add);
    session_.CheckArchiveResult(Operation::write, pc.code, 221);
    ++session_.pr.A.valore;
    return session_.store.LastArchiveResult == store::kOk;
  }

  bool writeCounter() {
    session_.pr.put("conto", store::Put::write);
    session_.CheckArchiveResult(Operation::write, session_.pr.code, 222);
    return session_.store.LastArchiveResult == store::kOk;
  }

  Session& session_;
};

}  // namespace

bool hasStarterChart(const Session& session) {
  std::error_code error;
  return std::filesystem::is_regular_file(fileOf(session), error);
}

bool addStarterChart(Session& session) {
  store::Group group(session.store, session.groupLog(), archives::Layout<rec::pc>::code, 223);
  return Chart(session).add() && group.commit();
}

}  // namespace tarvex
