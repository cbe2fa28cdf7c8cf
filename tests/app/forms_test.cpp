// What holds for every form of the program, whatever it does.
#include <doctest/doctest.h>

#include "session/station.h"
#include "tools/scratch.h"
#include "ui/lookup.h"

TEST_CASE("every form is laid out without faults, opens and closes clean") {
  const test::Scratch scratch;
  test::Station station(scratch.path());
  REQUIRE(station.start(test::found(station.desk, "ROSSI SRL", "2003")));
  for (const tarvex::Unit& unit : tarvex::units()) {
    CAPTURE(unit.name);
    const auto form = station.session.make(unit.name);
    CHECK(form->name() == unit.name);
    for (const std::string& fault : ui::faultsOf(*form)) FAIL_CHECK(fault);
    ui::User user(*form);
    CHECK(user.begin());
    CHECK(form->focused() != nullptr);
    CHECK(user.close());
    CHECK(!form->isOpen());
  }
  CHECK(station.desk.boxes.empty());
  CHECK(station.desk.nowBusy == 0);
}
