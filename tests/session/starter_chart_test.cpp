// The chart and the schemes that a company may begin with.
#include <doctest/doctest.h>

#include "archives/ax.h"
#include "session/station.h"
#include "tools/scratch.h"

using namespace tarvex;

TEST_CASE("a new company begins with the chart and the schemes only where they are wished") {
  const test::Scratch directory;
  test::Station station(directory.path());
  REQUIRE(station.start(test::found(station.desk, "Rossi", "2003")));
  Session& session = station.session;
  const auto make = [&](const char* name, bool chart, bool schemes) {
    station.desk.modal["APRIAZ"] = [=](ui::Form& form) {
      Hands hands(form);
      CHECK(!hands.at("causalibase").enabled());
      if (chart) hands.check("pianobase", true);
      if (schemes) hands.check("causalibase", true);
      test::fillCompany(form, name, "2003");
    };
    REQUIRE(station.frame.choose("ma3") == Chosen::done);
    CHECK(station.desk.boxes.empty());
  };
  auto& pc = session.pc;
  const auto voices = [&] {
    int count = 0;
    for (pc.bof(0); pc.next(0) == store::kOk;) ++count;
    return count;
  };
  const auto schemes = [&] {
    OpenArchive<rec::ax> ax(session, 0, 0);
    int count = 0;
    for (ax->bof(0); ax->next(0) == store::kOk;) ++count;
    return count;
  };
  make("Senza", false, false);
  CHECK(voices() == 22);
  CHECK(schemes() == 0);
  make("Con", true, true);
  const int all = voices();
  CHECK(all > 100);
  CHECK(schemes() == 5);
  session.pr.search(0, "conto");
  CHECK(session.pr.B.valore == 50 + all - 22);
  REQUIRE(pc.search(1, "Banca c/c ordinario") == store::kOk);
  const rec::pc bank = pc.B;
  const std::string own = pc.primaryKey();
  CHECK(bank.tipo == "s");
  CHECK(bank.codice == bank.mastro + bank.conto + own);
  CHECK(bank.chiavetipo == "sBanca c/c ordinario");
  REQUIRE(pc.search(0, bank.conto) == store::kOk);
  CHECK(pc.B.ragsoc == "Banche e posta");
  CHECK(pc.B.conto == bank.conto);
  REQUIRE(pc.search(0, bank.mastro) == store::kOk);
  CHECK(pc.B.codice == bank.mastro + "0000000000");
  OpenArchive<rec::ax> ax(session, 0, 0);  // every scheme finds its voices
  for (ax->bof(0); ax->next(0) == store::kOk;)
    for (const rec::AxRow& row : ax->B.righe)
      if (!row.conto.empty()) CHECK_MESSAGE(pc.search(1, row.conto) == store::kOk, row.conto);
}
