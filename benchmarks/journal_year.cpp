#include "journal_year.h"

#include <algorithm>
#include <cstdlib>

#include "archives/mc.h"
#include "common/text.h"
#include "store/group.h"

namespace bench {
namespace {

using namespace tarvex;

constexpr int kLines = 5, kAtOnce = 10'000;

rec::mc journalRow(int row, int rows) {
  const int entry = row / kLines, line = row % kLines;
  rec::mc one;
  one.datareg = "2003" + zeros(1 + row / (rows / 12 + 1), 2) + zeros(1 + (row / 2400) % 28, 2);
  one.numdoc = zeros(entry, 6);
  one.datadoc = one.datareg;
  one.conto = zeros(kFirstVoice + (row * 7919LL) % kVoices, 5);
  (line == 0 ? one.dare : one.avere) = line == 0 ? 4.0 * (entry % 997 + 1) : entry % 997 + 1;
  one.nummov = std::to_string(entry * kLines + 1);
  one.descrizione = "Fattura n. " + one.numdoc;
  one.causale = "mg";
  one.chiavecontodoc = one.conto + one.datadoc + one.numdoc;
  one.chiavecontodata = one.conto + one.datareg;
  one.chiavedatadoc = one.datareg + one.numdoc;
  return one;
}

}  // namespace

std::string zeros(long long value, std::size_t width) { return common::zeroFill(value, width); }

void addVoices(Session& session) {
  for (int i = 0; i < kVoices; ++i) {
    rec::pc& voice = session.pc.A = {};
    const std::string code = zeros(kFirstVoice + i, 5);
    const bool customer = i % 2 == 0;
    voice.ragsoc = (customer ? "CLIENTE " : "CONTO ") + zeros(i, 6);
    voice.tipo = customer ? "c" : "s";
    voice.natura = "p";
    voice.mastro = "00001";
    voice.conto = customer ? "00005" : "00021";
    voice.codice = voice.mastro + voice.conto + code;
    session.pc.put(code, store::Put::add);
  }
  session.pc.flush();
}

void inGroups(Session& session, int count, const std::function<void(int)>& write) {
  for (int first = 0; first < count; first += kAtOnce) {
    store::Group group(session.store, session.groupLog(), session.pr.code, 1);
    for (int i = first; i < std::min(count, first + kAtOnce); ++i) write(i);
    if (!group.commit()) std::abort();
  }
}

void addJournal(Session& session, int rows) {
  OpenArchive<rec::mc> mc(session, 1, 2);
  inGroups(session, rows, [&](int row) {
    mc->A = journalRow(row, rows);
    mc->put(zeros(row + 1, 8), store::Put::add);
  });
  session.pr.A = {};
  session.pr.A.valore = rows;
  session.pr.put("mc", store::Put::write);
  session.pr.flush();
}

}  // namespace bench
