#include "ledger/reference_rules.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>

#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/sd.h"
#include "archives/sf.h"
#include "archives/st.h"
#include "archives/tt.h"
#include "common/amount.h"
#include "common/text.h"
#include "session/scan.h"

namespace tarvex {
namespace {

using Names = std::unordered_set<std::string>;

constexpr std::size_t kMostRecords = 100;  // that one finding names

template <class R, class Each>
bool scanRows(Session& session, const Each& each) {
  return scan<R>(session, 2906, 2907, 2908, each);
}

// What is named and is not there, each with the records that name it.
class Missing {
 public:
  void tell(std::string what, std::string record) {
    auto& records = records_[std::move(what)];
    if (records.size() < kMostRecords) records.push_back(std::move(record));
  }
  std::vector<Violation> violations(bool whole) && {
    std::vector<Violation> found;
    if (!whole) found.push_back({{}, "un archivio non si legge", {}, 0});
    for (auto& [what, records] : records_) found.push_back({{}, what, std::move(records), 0});
    return found;
  }

 private:
  std::map<std::string, std::vector<std::string>> records_;
};

bool readNames(Session& session, Names& voices, Names& codes) {
  const bool whole = scanRows<rec::pc>(
      session, [&](const archives::Archive<rec::pc>& pc) { voices.insert(pc.primaryKey()); });
  return scanRows<rec::civa>(
             session, [&](const archives::Archive<rec::civa>& civa) { codes.insert(civa.B.codice); }) &&
         whole;
}

template <class R>
bool checkVatRows(Session& session, const Names& voices, const Names& codes, Missing& missing) {
  return scanRows<R>(session, [&](const archives::Archive<R>& rows) {
    const R& row = rows.B;
    const std::string record = std::string(archives::Layout<R>::prefix) + " " + rows.primaryKey();
    if (!codes.contains(row.codiva)) missing.tell("il codice iva \"" + row.codiva + "\" non esiste", record);
    if (row.registro.size() != 1 || row.registro < "1" || row.registro > "9")
      missing.tell("il registro \"" + row.registro + "\" non esiste", record);
    if constexpr (requires { row.conto; })
      if (!row.conto.empty() && !voices.contains(row.conto))
        missing.tell("la voce " + row.conto + " non esiste", record);
  });
}

template <class R>
bool checkDueDates(Session& session, const Names& voices, Missing& missing) {
  return scanRows<R>(session, [&](const archives::Archive<R>& dues) {
    if (!voices.contains(dues.B.conto))
      missing.tell("la voce " + dues.B.conto + " non esiste",
                   std::string(archives::Layout<R>::prefix) + " " + dues.primaryKey());
  });
}

// The greatest key of an archive as a number.
template <class R>
bool greatestKey(Session& session, std::int64_t& greatest) {
  return scanRows<R>(session, [&](const archives::Archive<R>& rows) {
    greatest = std::max(greatest, static_cast<std::int64_t>(common::numberValue(rows.primaryKey())));
  });
}

template <class R>
void checkCounter(Session& session, std::string_view counter, std::vector<Violation>& violations) {
  const std::string prefix(archives::Layout<R>::prefix);
  std::int64_t greatest = 0;
  if (!greatestKey<R>(session, greatest)) {
    violations.push_back({{}, "l'archivio " + prefix + " non si legge", {}, 0});
    return;
  }
  const bool found = session.pr.search(0, counter) == store::kOk;
  const std::int64_t stands = found ? session.pr.B.valore : 0;
  if (stands >= greatest) return;
  violations.push_back({{},
                        "il contatore di " + prefix + " è " + std::to_string(stands) +
                            ", l'ultimo numero è " + std::to_string(greatest),
                        {"pr " + std::string(counter)},
                        static_cast<double>(stands - greatest)});
}

using Numbers = std::map<std::string, std::set<std::int64_t>>;  // by register

template <class R, class Number>
bool readNumbers(Session& session, Numbers& numbers, const Number& number) {
  return scanRows<R>(session, [&](const archives::Archive<R>& rows) {
    numbers[rows.B.registro].insert(static_cast<std::int64_t>(common::numberValue(number(rows.B))));
  });
}

void tellGaps(const Numbers& numbers, const std::string& what, std::vector<Violation>& violations) {
  for (const auto& [registro, given] : numbers) {
    std::int64_t last = *given.begin();
    for (const std::int64_t number : given) {
      const std::int64_t from = last + 1, to = number - 1;
      last = number;
      if (from > to) continue;
      std::string span = common::zeroFill(from, 5);
      if (to > from) span += "-" + common::zeroFill(to, 5);
      violations.push_back({{}, "registro " + registro + ", " + what + " " + span, {}, 0});
    }
  }
}

}  // namespace

std::vector<Violation> checkReferences(Session& session) {
  Names voices, codes;
  Missing missing;
  bool whole = readNames(session, voices, codes);
  const auto voice = [&](const std::string& code, const std::string& record) {
    if (!voices.contains(code)) missing.tell("la voce " + code + " non esiste", record);
  };
  whole = scanRows<rec::mc>(
              session,
              [&](const archives::Archive<rec::mc>& mc) { voice(mc.B.conto, "mc " + mc.primaryKey()); }) &&
          whole;
  whole = scanRows<rec::pc>(session,
                            [&](const archives::Archive<rec::pc>& pc) {
                              if (!pc.B.mastro.empty()) voice(pc.B.mastro, "pc " + pc.primaryKey());
                              if (!pc.B.conto.empty()) voice(pc.B.conto, "pc " + pc.primaryKey());
                            }) &&
          whole;
  whole = checkVatRows<rec::iv>(session, voices, codes, missing) && whole;
  whole = checkVatRows<rec::ia>(session, voices, codes, missing) && whole;
  whole = checkVatRows<rec::ic>(session, voices, codes, missing) && whole;
  whole = checkDueDates<rec::sd>(session, voices, missing) && whole;
  whole = checkDueDates<rec::st>(session, voices, missing) && whole;
  whole = checkDueDates<rec::sf>(session, voices, missing) && whole;
  return std::move(missing).violations(whole);
}

std::vector<Violation> checkScreenRows(Session& session) {
  Names entries;
  Missing missing;
  bool whole =
      scanRows<rec::mc>(session, [&](const archives::Archive<rec::mc>& mc) { entries.insert(mc.B.nummov); });
  whole = scanRows<rec::tt>(session,
                            [&](const archives::Archive<rec::tt>& tt) {
                              if (!entries.contains(tt.B.nummov))
                                missing.tell("la registrazione " + tt.B.nummov + " non esiste",
                                             "tt " + tt.primaryKey());
                            }) &&
          whole;
  return std::move(missing).violations(whole);
}

std::vector<Violation> checkCounters(Session& session) {
  std::vector<Violation> violations;
  checkCounter<rec::mc>(session, "mc", violations);
  checkCounter<rec::tt>(session, "dati", violations);
  checkCounter<rec::iv>(session, "iv", violations);
  checkCounter<rec::ia>(session, "ia", violations);
  checkCounter<rec::ic>(session, "ic", violations);
  checkCounter<rec::pc>(session, "conto", violations);
  return violations;
}

std::vector<Violation> checkGaps(Session& session) {
  Numbers sales, protocols;
  bool whole = readNumbers<rec::iv>(session, sales, [](const rec::iv& row) { return row.numero; });
  whole =
      readNumbers<rec::ia>(session, protocols, [](const rec::ia& row) { return row.protocollo; }) && whole;
  std::vector<Violation> violations;
  if (!whole) violations.push_back({{}, "un archivio iva non si legge", {}, 0});
  tellGaps(sales, "manca la fattura", violations);
  tellGaps(protocols, "manca il protocollo", violations);
  return violations;
}

}  // namespace tarvex
