#include "common/date.h"

#include <doctest/doctest.h>

#include "common/clock.h"

using namespace common;

TEST_CASE("the four forms of a date") {
  CHECK(DateToKey("31/12/2003") == "20031231");
  CHECK(KeyToDate("20031231") == "31122003");
  CHECK(SlashDate("31122003") == "31/12/2003");
  CHECK(SlashDateShort("311203") == "31/12/03");
  CHECK(DateToKey("").empty());
  CHECK(SlashDate(KeyToDate("")).empty());
}

TEST_CASE("blank dates are cleared, begun ones are not") {
  for (std::string blank : {"__/__/__", "__/__/____", "__/__/2003", "00/00/0000", "0", " "}) {
    clearBlankDate(blank);
    CHECK(blank.empty());
  }
  std::string begun = "1_/__/2003";
  clearBlankDate(begun);
  CHECK(begun == "1_/__/2003");
}

TEST_CASE("which days exist") {
  for (const char* date :
       {"29/02/2000", "29/02/2004", "29/02/2016", "31/01/2003", "30/04/2003", "31/12/0001"})
    CHECK_MESSAGE(dayExists(date), date);
  for (const char* date :
       {"29/02/2020", "30/02/2004", "29/02/1996", "29/02/2003", "31/04/2003", "31/06/2003", "31/09/2003",
        "31/11/2003", "00/01/2003", "32/01/2003", "01/00/2003", "01/13/2003", "1/1/2003", "01/01/03",
        "__/__/2003", "01/01/200_", "", "01-01-2003", "+1/01/2003"})
    CHECK_FALSE_MESSAGE(dayExists(date), date);
}

TEST_CASE("years of a date") {
  CHECK(isDateOf("29/02/2000", "2000"));
  CHECK_FALSE(isDateOf("01/01/2004", "2003"));
  CHECK(isDate("01/01/1900"));
  CHECK(isDate("31/12/2099"));
  CHECK_FALSE(isDate("31/12/1899"));
  CHECK_FALSE(isDate("01/01/2100"));
}

TEST_CASE("days are counted by the calendar, whatever the entry fields take") {
  CHECK(daysBetween("28/02/2020", "01/03/2020") == 2);
  CHECK(daysBetween("31/12/2003", "01/01/2003") == -364);
  CHECK(daysBetween("01/01/2000", "01/01/2100") == 36525);
  CHECK(daysBetween("30/02/2003", "01/03/2003") == 0);
  CHECK(daysBetween("", "01/03/2003") == 0);
}

TEST_CASE("a clock that is fixed, and one that is not") {
  const Clock fixed("15/01/2003", "09:30");
  CHECK(fixed.today() == "15/01/2003");
  CHECK(fixed.now() == "09:30:00");
  const Clock machine;
  CHECK(isDate(machine.today()));
  CHECK(machine.now().size() == 8);
}
