#include "ui/rich_text.h"

#include <doctest/doctest.h>

#include <string>

using ui::RichText;

namespace {

std::string plain(std::string_view html) { return RichText::fromHtml(html).plain(); }
std::string again(std::string_view html) { return RichText::fromHtml(html).html(); }

}  // namespace

TEST_CASE("the subset of HTML is kept, the rest is passed over") {
  CHECK(again("<b>Pagare</b> <i>subito</i>") == "<b>Pagare</b> <i>subito</i>");
  CHECK(again("<B><u>a</B>b</u>") == "<b><u>a</u></b><u>b</u>");
  CHECK(again("<font color='#ff0000' face=\"Open Sans\" onclick=x>a</font>b") ==
        "<font face=\"Open Sans\" color=\"#ff0000\">a</font>b");
  CHECK(again("<font size=4>a<font size=2>b</font>c</font>") ==
        "<font size=\"4\">a</font><font size=\"2\">b</font><font size=\"4\">c</font>");
  CHECK(again("<html><head><title>x</title></head><body><span>a</span><script>y<b></script></body>") == "a");
  CHECK(again("a<!-- no -->b<br/>c") == "ab<br>c");
  CHECK(plain("a &amp; b &lt;c&gt; &#232;&#xE8;&nbsp;&boh; &") == "a & b <c> èè &boh; &");
  CHECK(plain("<b>&#0;&#7;&#xD800;</b>") == "\xEF\xBF\xBD \xEF\xBF\xBD");
  CHECK(plain("1 < 2 & 3 > 2\nseconda") == "1 < 2 & 3 > 2\nseconda");
}

TEST_CASE("lines come from breaks and paragraphs") {
  CHECK(plain("<p>a</p><p>b</p>") == "a\nb");
  CHECK(plain("<p>a</p>\n<p><br></p>\n<p>b</p>") == "a\n\nb");
  CHECK(plain("a<br>b<p>c<br></p><p>d</p>") == "a\nb\nc\nd");
  CHECK(plain("a<p>b") == "a\nb");
  CHECK(RichText::fromPlain("a\r\nb\rc\td\x01").plain() == "a\nb\nc\td ");
}

TEST_CASE("html written is html read") {
  for (const char* text : {"", "a", "a < b & \"c\"", "due\n\nrighe\n", " a  b ", "\tè", "<b>", "&amp;"}) {
    const RichText notes = RichText::fromPlain(text);
    CHECK(RichText::fromHtml(notes.html()).plain() == text);
    CHECK(again(notes.html()) == notes.html());
  }
}

TEST_CASE("text is added and taken away at the end") {
  RichText notes = RichText::fromHtml("a<b>è</b>");
  notes.append("ò<");
  CHECK(notes.html() == "a<b>èò&lt;</b>");
  CHECK(notes.length() == 4);
  for (int i = 0; i < 3; ++i) CHECK(notes.eraseLast());
  CHECK(notes.html() == "a");
  CHECK(notes.eraseLast());
  CHECK_FALSE(notes.eraseLast());
  notes = RichText::fromHtml("ab<i>cè</i><u>ef</u>");
  notes.truncate(4);
  CHECK(notes.html() == "ab<i>cè</i>");
  notes.truncate(2);
  CHECK(notes.html() == "ab");
  notes.truncate(0);
  CHECK(notes.empty());
}

TEST_CASE("ten megabytes of broken tags are read in a moment") {
  for (const char* piece : {"<b", "<b>x", "&#", "<p>a</p>", "\xFF<", "a=a=<font face="}) {
    std::string huge;
    while (huge.size() < 10'000'000) huge += piece;
    RichText notes = RichText::fromHtml(huge);
    notes.truncate(1000);
    CHECK(notes.length() <= 1000);
  }
}
