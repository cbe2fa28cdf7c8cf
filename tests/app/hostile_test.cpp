// Whatever is typed into whatever field: a message or a beep, never a crash, a partial entry or a record that
// no screen could show.
#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

#include "app/invoices.h"
#include "app/verify.h"
#include "archives/mc.h"
#include "common/text.h"
#include "tools/scratch.h"

namespace {

using namespace std::string_literals;

std::vector<std::string> hostileTexts() {
  std::vector<std::string> texts{
      // amounts
      "-0", "0,005", "1.234,56", "1,234.56", "12,34,56", ",", "-", "--5", "999999999999999999999", "1e400",
      "nan", "inf", "&HFF", "32768", "-32769", "2147483648", "9223372036854775808",
      "1"s + std::string(400, '0'), "0," + std::string(400, '0') + "1", "€ 5", "٥",
      // dates
      "29/02/2003", "29/02/2020", "31/04/2003", "00/01/2003", "01/13/2003", "01/01/0000", "01/01/9999",
      "99/99/9999", "2003-01-01", "01/__/2003", "aa/bb/cccc", "01/01/20033", "//",
      // characters
      "Ro\x01ssi", "Ro\nssi", "Ro\0ssi"s, "Ro\x7Fssi", "\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
      "A\xC3", "Citt\xE0", "\xEF\xBB\xBFRossi", "e\xCC\x81", "\xE2\x80\xAErovescio", "💶💶💶💶💶💶💶💶💶💶💶💶💶💶💶💶",
      // what means something to somebody
      "*", "%s%n%x", "' OR '1'='1", "x'; DROP TABLE r;--", "<b>&amp;", "{\\rtf1{\\object",
      "../../../../etc/passwd", "---------------", "mono", "00001", "=1+1", " ", "   "};
  for (const int length : {29, 30, 31, 40, 41, 256, 65536}) {
    texts.emplace_back(static_cast<std::size_t>(length), 'A');
    std::string accented;
    for (int i = 0; i < length; ++i) accented += "è";
    texts.push_back(accented);
  }
  texts.emplace_back(10'000'000, 'B');
  return texts;
}

void typeEverywhere(ui::Form& form, const std::string& text) {
  ui::User user(form);
  if (!user.begin()) return;
  const auto controls = form.controls();
  for (ui::Control* control : controls) {
    if (!form.isOpen()) return;
    if (auto* field = dynamic_cast<ui::Field*>(control)) user.set(*field, text);
    if (auto* memo = dynamic_cast<ui::Memo*>(control)) user.set(*memo, text);
  }
  for (ui::Control* control : controls) {
    auto* button = dynamic_cast<ui::Button*>(control);
    if (form.isOpen() && button && button->role() == ui::Button::Role::main) user.press(*button);
  }
}

bool isShowable(std::string_view text) { return common::isUtf8(text) && common::cleaned(text) == text; }

}  // namespace

TEST_CASE("no text in any field harms the program or its books") {
  const test::Scratch scratch;
  test::makeBooks(scratch.path());
  test::Station station(scratch.path());
  station.desk.modal["anpc1"] = test::leave;  // the question before a voice is removed
  REQUIRE(station.start(test::choose(test::kCompany, test::kYear)));
  for (const tarvex::Unit& unit : tarvex::units()) {
    CAPTURE(unit.name);
    // They would change the company under the test, or ask; their fields are no others.
    if (unit.name == "APRIAZ" || unit.name == "DUPLICA" || unit.name == "PASSW") continue;
    for (const std::string& text : hostileTexts()) {
      CAPTURE(text.substr(0, 40));
      const auto form = station.session.make(unit.name);
      typeEverywhere(*form, text);
      form->close();
      REQUIRE(station.session.isCompanyOpen());
    }
  }
  for (const tarvex::Violation& violation : tarvex::verify(station.session))
    if (!violation.notice) FAIL_CHECK(violation.text);
  tarvex::OpenArchive<rec::mc> mc(station.session, 0, 0);
  mc->bof(0);
  CHECK(mc->next(0) == store::kNotFound);
  int voices = 0;
  auto& pc = station.session.pc;
  for (pc.bof(0); pc.next(0) == store::kOk; ++voices) {
    CHECK(isShowable(pc.B.ragsoc));
    CHECK(common::length(pc.B.ragsoc) <= 30);
    for (const std::string* text : {&pc.B.indirizzo, &pc.B.citta, &pc.B.email, &pc.B.cap, &pc.B.zona})
      CHECK(isShowable(*text));
  }
  CHECK(voices > 25);  // some of the texts are names that a customer may bear
}
