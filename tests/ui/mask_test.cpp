#include "ui/mask.h"

#include <doctest/doctest.h>

#include <string>

#include "common/text.h"
#include "ui/key.h"

using ui::Edit;
using ui::Mask;

namespace {

// The text after these keys, with a "!" for each refused one, and as it is at rest.
std::string typed(const Mask& mask, std::string_view keys, std::string_view from = "") {
  Edit edit{std::string(from.empty() ? mask.blank() : from), 0, 0};
  if (mask.blank().empty()) edit.cursor = edit.text.size();
  std::string refused;
  for (std::size_t at = 0; at < keys.size();) {
    const std::string key = common::cut(keys.substr(at), 1);
    if (!mask.type(edit, key)) refused += "!";
    at += key.size();
  }
  return edit.text + refused;
}

std::string entered(const Mask& mask, std::string_view text) {
  Edit edit{"before", 6, 6};
  const bool whole = mask.enter(edit, text);
  CHECK(edit.cursor == edit.mark);
  return edit.text + (whole ? "" : "!");
}

}  // namespace

TEST_CASE("a text field counts characters and never splits one") {
  const Mask mask = Mask::text(5);
  CHECK(typed(mask, "perché") == "perch!");
  CHECK(typed(mask, "àèìòùx") == "àèìòù!");
  CHECK(typed(mask, "€𝄞é") == "€𝄞é");
  CHECK(typed(Mask::upper(4), "città") == "CITT!");
  CHECK(typed(Mask::upper(5), "città") == "CITTÀ");
  CHECK(typed(Mask::password(3), "aèi") == "aèi");
  CHECK(Mask::password(3).shown("aèi") == "•••");

  Edit edit{"aèi", 1, 3};  // the è is selected: one key takes its place
  CHECK(mask.type(edit, "ò"));
  CHECK(edit.text == "aòi");
  CHECK(edit.cursor == 3);
  CHECK(mask.erase(edit, true));
  CHECK(edit.text == "ai");
  CHECK(edit.cursor == 1);
  edit = {"xèy", 1, 1};
  CHECK(mask.erase(edit, false));
  CHECK(edit.text == "xy");
  edit = {"abcde", 1, 3};
  CHECK(mask.type(edit, "è"));  // a full field takes a key in place of a selection
  CHECK(edit.text == "aède");
  edit = {"", 0, 0};
  CHECK_FALSE(mask.erase(edit, true));
  CHECK_FALSE(mask.erase(edit, false));
}

TEST_CASE("digits, signs and single keys") {
  CHECK(typed(Mask::digits(5), "12a34 567") == "12345!!!!");
  CHECK(typed(Mask::integer(4), "-1-2+3") == "-123!!");
  Edit edit{"-12", 0, 0};
  CHECK_FALSE(Mask::integer(4).type(edit, "5"));  // nothing goes in front of the sign
  CHECK(edit.text == "-12");
  CHECK(Mask::integer(4).atRest("-") == "");
  CHECK(typed(Mask::oneOf("123456789"), "120") == "2!");
  CHECK(typed(Mask::oneOf("SN"), "n") == "N");
  CHECK(typed(Mask::oneOf("SN"), "é") == "!");
}

TEST_CASE("amounts take the keypad's dot as a comma and stay within their width") {
  const Mask mask = Mask::amount();
  CHECK(typed(mask, "1234.5") == "1234,5");
  CHECK(mask.atRest("1234,5") == "1.234,50");
  CHECK(typed(mask, "12,,5-") == "12,5!!");
  CHECK(typed(mask, "10,005") == "10,00!");
  CHECK(typed(mask, "-5") == "-5");
  CHECK(typed(mask, "x") == "!");
  CHECK(typed(Mask::amount(0, 9), "12,3") == "123!");
  CHECK(mask.atRest("") == "");
  CHECK(mask.atRest("-") == "");
  CHECK(mask.atRest("-0") == "0,00");

  CHECK(mask.atRest(typed(mask, "999999999999,99")) == "999.999.999.999,99");
  CHECK(typed(mask, "9999999999999") == "999999999999!");
  CHECK(typed(mask, "-999999999999") == "-99999999999!");
  CHECK(typed(Mask::amount(2, 8), "12345") == "1234!");
  Edit edit{"12345", 1, 1};
  CHECK_FALSE(mask.type(edit, ","));  // four decimals would stand behind it
}

TEST_CASE("an amount is entered as it stands on the screen") {
  const Mask mask = Mask::amount();
  CHECK(entered(mask, "1.234,50") == "1.234,50");
  CHECK(entered(mask, "-1.234.567,8") == "-1.234.567,8");
  CHECK(entered(mask, "1.234") == "1.234");
  CHECK(entered(mask, "1234.5") == "1234,5");
  CHECK(entered(mask, "0.50") == "0,50");
  CHECK(entered(Mask::amount(3), "0.500") == "0,500");  // no thousands begin with a nought
  CHECK(entered(mask, "1.23,4") == "1,23!");
  CHECK(entered(mask, "10000000000000000") == "100000000000!");
  CHECK(entered(mask, "1.000.000.000.000.000,00") == "100000000000,00!");
  CHECK(mask.keysOf("1.234,50") == "1234,50");
  CHECK(mask.keysOf("1234.50") == "1234.50");
}

TEST_CASE("a date is typed over its blank") {
  const Mask date = Mask::pattern("__/__/2003"), free = Mask::pattern("__/__/____");
  CHECK(typed(date, "15012003") == "15/01/2003");
  CHECK(typed(date, "15/01/2002") == "15/01/2002");
  CHECK(typed(date, "5/1/") == "05/01/2003");
  CHECK(typed(date, "5/1/4") == "05/01/4003");
  CHECK(typed(date, "1x5") == "15/__/2003!");
  CHECK(typed(date, "/") == "__/__/2003!");  // nothing to end yet
  CHECK(typed(date, "15/0120039") == "15/01/2003!");
  CHECK(typed(free, "1/2/2004") == "01/02/2004");
  CHECK(typed(free, "31/12/99") == "31/12/99__");
  CHECK(typed(date, "16/2/", "15/01/2003") == "16/02/2003");
  CHECK(typed(date, "/3/", "15/01/2003") == "15/03/2003");  // the separator passes over what stands
  CHECK(typed(date, "1é") == "1_/__/2003!");
  CHECK(typed(date, "15", "garbage") == "15/__/2003");
  CHECK(typed(date, "x", "garbage") == "garbage!");  // refused: it stays as it was
  CHECK(entered(date, "15/01/2002") == "15/01/2002");
  CHECK(entered(date, "32/13/1") == "32/13/1003");
  CHECK(entered(date, "") == "__/__/2003");
  CHECK(entered(date, "oggi") == "__/__/2003!");

  CHECK(date.isBlank(""));
  CHECK(date.isBlank("__/__/2003"));
  CHECK(date.isBlank("__/__/____"));
  CHECK_FALSE(date.isBlank("1_/__/2003"));
  CHECK_FALSE(date.isBlank("__/__/2004"));

  Edit edit{"15/01/2004", 10, 10};
  for (int i = 0; i < 6; ++i) CHECK(date.erase(edit, true));
  CHECK(edit.text == "15/__/2003");  // the separators and the year of the blank come back
  CHECK(edit.cursor == 3);
  CHECK(date.erase(edit, true));
  CHECK(edit.text == "1_/__/2003");
  edit = {"15/01/2004", 0, 10};
  CHECK(date.type(edit, "7"));
  CHECK(edit.text == "7_/__/2003");
}

TEST_CASE("a year of two digits is made whole when the field is left") {
  struct Case {
    const char *blank, *typed, *atRest;
  };
  for (const Case& one : {Case{"__/__/2003", "15/1/03", "15/01/2003"},
                          {"__/__/2003", "15/1/04", "15/01/2004"},
                          {"__/__/2003", "15/1", "15/1_/2003"},
                          {"__/__/2003", "15/01/1999", "15/01/1999"},
                          {"__/__/____", "15/3/65", "15/03/1965"},
                          {"__/__/____", "15/3/2065", "15/03/2065"},
                          {"__/__/____", "15/3", "15/3_/____"},
                          {"__/__/____", "", "__/__/____"}}) {
    CAPTURE(one.typed);
    const Mask mask = Mask::pattern(one.blank);
    Edit edit;
    mask.enter(edit, one.typed);
    CHECK(mask.atRest(edit.text) == one.atRest);
  }
}

TEST_CASE("any bytes may be entered, in time linear in their length") {
  CHECK(entered(Mask::text(9),
                "a\x01"
                "b\nc\xFF"
                "d") ==
        "a b c\xEF\xBF\xBD"
        "d");
  std::string huge;
  while (huge.size() < 10'000'000) huge += "1.è\xC3\x07/";
  CHECK(common::length(entered(Mask::text(50), huge)) == 51);
  CHECK(common::length(entered(Mask::upper(50), huge)) == 51);
  CHECK(entered(Mask::digits(5), huge) == "11111!");
  CHECK(entered(Mask::amount(), huge) == "1,11!");
  CHECK(entered(Mask::oneOf("1"), huge) == "1!");
  CHECK(entered(Mask::pattern("__/__/2003"), huge).size() == 11);
}

TEST_CASE("keys by name") {
  CHECK(ui::parseKey("pagedown") == ui::Key::pageDown);
  CHECK(ui::parseKey("F12") == ui::Key::F12);
  CHECK(ui::parseKey("Ctrl+X") == ui::ctrl('X'));
  for (const char* wrong : {"", "F0", "F13", "F1 ", "Ctrl+", "Ctrl+XX", "Ctrl+1", "x"})
    CHECK_FALSE(ui::parseKey(wrong));
  for (const char* name : {"Enter", "Backspace", "F1", "F10", "Ctrl+A", "Ctrl+Z"})
    CHECK(ui::nameOf(*ui::parseKey(name)) == name);
}
