// Notes with bold, italic, underlined words and fonts, kept in records as a small subset of HTML.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

class RichText {
 public:
  RichText();
  ~RichText();
  RichText(const RichText&);
  RichText& operator=(const RichText&);

  // <b> <i> <u> <font face size color> <br> <p>; other tags are passed over, the contents of head,
  // style and script with them. A text without any tag or entity is plain, its line feeds end lines.
  static RichText fromHtml(std::string_view html);
  static RichText fromPlain(std::string_view text);

  std::string html() const;                       // the same for the same contents; lines parted by <br>
  std::string plain() const;                      // lines parted by \n
  std::size_t length() const { return length_; }  // in characters of the plain text
  bool empty() const { return length_ == 0; }

  void append(std::string_view plain);  // in the style of the last characters
  bool eraseLast();                     // the last character; false when there is none
  void truncate(std::size_t characters);

 private:
  struct Style {
    bool bold = false, italic = false, underline = false;
    std::string font;  // the attributes of the font tag: ` face="Arial" size="4"`
    bool operator==(const Style&) const = default;
  };
  struct Run {
    Style style;
    std::string text;
  };
  class Reader;
  void add(const Style& style, std::string_view text);

  std::vector<Run> runs_;
  std::size_t length_ = 0;
};

}  // namespace ui
