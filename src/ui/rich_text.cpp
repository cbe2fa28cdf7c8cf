#include "ui/rich_text.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "common/text.h"

namespace ui {
namespace {

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

void escape(std::string& out, std::string_view text) {
  for (const char c : text) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else if (c == '>')
      out += "&gt;";
    else if (c == '"')
      out += "&quot;";
    else if (c == '\n')
      out += "<br>";
    else if (c == '\t')
      out += "&#9;";
    else
      out += c;
  }
}

std::string utf8(unsigned long code) {
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return "\xEF\xBF\xBD";
  const auto byte = [](unsigned long value) { return static_cast<char>(value); };
  if (code < 0x80) return {byte(code)};
  if (code < 0x800) return {byte(0xC0 | code >> 6), byte(0x80 | (code & 0x3F))};
  const char last = byte(0x80 | (code & 0x3F)), middle = byte(0x80 | ((code >> 6) & 0x3F));
  if (code < 0x10000) return {byte(0xE0 | code >> 12), middle, last};
  return {byte(0xF0 | code >> 18), byte(0x80 | ((code >> 12) & 0x3F)), middle, last};
}

constexpr std::size_t kLongestEntity = 10;

// The entity at the start of `text`, "&amp;" or "&#233;": what it stands for and its length in bytes;
// the "&" itself when it is none.
std::pair<std::string, std::size_t> entity(std::string_view text) {
  const auto end = text.substr(0, kLongestEntity).find(';');
  const std::string_view name = end == std::string_view::npos ? "" : text.substr(1, end - 1);
  constexpr std::pair<std::string_view, std::string_view> known[] = {
      {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}};
  for (const auto& [word, character] : known)
    if (name == word) return {std::string(character), end + 1};
  if (name.size() < 2 || name[0] != '#') return {"&", 1};
  const bool hex = name[1] == 'x' || name[1] == 'X';
  const std::string_view digits = name.substr(hex ? 2 : 1);
  unsigned long code = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), code, hex ? 16 : 10);
  if (digits.empty() || read.ptr != digits.data() + digits.size()) return {"&", 1};
  return {utf8(code), end + 1};
}

bool anyTag(std::string_view html) {
  for (auto at = html.find_first_of("<&"); at != std::string_view::npos;
       at = html.find_first_of("<&", at + 1)) {
    if (html[at] == '&' && entity(html.substr(at)).second > 1) return true;
    const char next = at + 1 < html.size() ? html[at + 1] : ' ';
    if (html[at] == '<' && (isLetter(next) || next == '/' || next == '!')) return true;
  }
  return false;
}

// The value of one attribute of a tag, without quotes; empty when it is not there.
std::string attribute(std::string_view tag, std::string_view name) {
  const std::string folded = common::upper(tag), wanted = common::upper(name);
  for (auto at = folded.find(wanted); at != std::string::npos; at = folded.find(wanted, at + 1)) {
    auto from = at + wanted.size();
    if (at == 0 || !isBlank(folded[at - 1]) || from >= tag.size() || tag[from] != '=') continue;
    ++from;
    const bool quoted = from < tag.size() && (tag[from] == '"' || tag[from] == '\'');
    const auto end = quoted ? tag.find(tag[from], from + 1) : tag.find_first_of(" \t\n\r", from);
    return std::string(
        tag.substr(from + quoted, (end == std::string_view::npos ? tag.size() : end) - from - quoted));
  }
  return {};
}

std::string fontOf(std::string_view tag) {
  std::string font;
  for (const char* name : {"face", "size", "color"}) {
    const std::string value = attribute(tag, name);
    if (value.empty()) continue;
    font.append(" ").append(name) += "=\"";
    escape(font, value);
    font += '"';
  }
  return font;
}

}  // namespace

// Reads the tags and the words between them, once from the first byte to the last.
class RichText::Reader {
 public:
  explicit Reader(RichText& into) : into_(into) {}

  void read(std::string_view html) {
    while (!html.empty()) {
      const char next = html.size() > 1 ? html[1] : ' ';
      const bool tagBegins = html[0] == '<' && (isLetter(next) || next == '/' || next == '!');
      const auto end = tagBegins && reach_ ? html.find('>') : std::string_view::npos;
      if (tagBegins && end == std::string_view::npos) reach_ = false;  // no later tag ends either
      if (end != std::string_view::npos) {
        tag(html.substr(1, end - 1));
        html.remove_prefix(end + 1);
      } else if (html[0] == '&') {
        const auto [text, size] = entity(html);
        character(common::cleaned(text, true));
        html.remove_prefix(size);
      } else {
        const auto size = std::max<std::size_t>(1, std::min(html.find_first_of("<&", 1), html.size()));
        words(html.substr(0, size));
        html.remove_prefix(size);
      }
    }
  }

 private:
  void words(std::string_view text) {
    if (!skipped_.empty()) return;
    const bool lineOfSource = text.find('\n') != std::string_view::npos;
    if (lineOfSource && std::all_of(text.begin(), text.end(), isBlank)) return;  // between two tags
    std::string plain = common::cleaned(text, true);
    std::replace_if(plain.begin(), plain.end(), isBlank, ' ');
    character(plain);
  }

  void character(std::string_view text) {
    if (!skipped_.empty()) return;
    beginLine();
    into_.add(style_, text);
    lineBroken_ = false;
  }

  void tag(std::string_view text) {
    const bool ends = text.starts_with('/');
    if (ends) text.remove_prefix(1);
    const std::string name = common::upper(text.substr(0, text.find_first_of(" \t\n\r/")));
    if (!skipped_.empty()) {
      if (ends && name == skipped_) skipped_.clear();
      return;
    }
    if (name == "HEAD" || name == "STYLE" || name == "SCRIPT") {
      if (!ends) skipped_ = name;
    } else if (name == "BR") {
      beginLine();
      into_.add(style_, "\n");
      lineBroken_ = true;
    } else if (name == "P") {
      paragraphEnded_ = into_.length_ > 0 && !lineBroken_;
    } else {
      style(name, ends, text);
    }
  }

  void beginLine() {
    if (paragraphEnded_) into_.add(style_, "\n");
    paragraphEnded_ = false;
  }

  void style(const std::string& name, bool ends, std::string_view tag) {
    if (name == "B" || name == "STRONG") style_.bold = !ends;
    if (name == "I" || name == "EM") style_.italic = !ends;
    if (name == "U") style_.underline = !ends;
    if (name != "FONT") return;
    if (!ends)
      fonts_.push_back(fontOf(tag));
    else if (!fonts_.empty())
      fonts_.pop_back();
    style_.font = fonts_.empty() ? std::string() : fonts_.back();
  }

  RichText& into_;
  Style style_;
  std::vector<std::string> fonts_;
  std::string skipped_;          // the tag whose contents are passed over
  bool reach_ = true;            // some tag may still end
  bool paragraphEnded_ = false;  // the next words begin a new line
  bool lineBroken_ = false;      // the last thing was a <br>, which ends its paragraph's last line alone
};

RichText::RichText() = default;
RichText::~RichText() = default;
RichText::RichText(const RichText&) = default;
RichText& RichText::operator=(const RichText&) = default;

RichText RichText::fromHtml(std::string_view html) {
  if (!anyTag(html)) return fromPlain(html);
  RichText result;
  Reader(result).read(html);
  return result;
}

RichText RichText::fromPlain(std::string_view text) {
  std::string lines;
  lines.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!pair) lines += text[i] == '\r' ? '\n' : text[i];
  }
  RichText result;
  result.add({}, common::cleaned(lines, true));
  return result;
}

std::string RichText::html() const {
  std::string html;
  for (const Run& run : runs_) {
    const Style& style = run.style;
    if (!style.font.empty()) html.append("<font").append(style.font) += '>';
    if (style.bold) html += "<b>";
    if (style.italic) html += "<i>";
    if (style.underline) html += "<u>";
    escape(html, run.text);
    if (style.underline) html += "</u>";
    if (style.italic) html += "</i>";
    if (style.bold) html += "</b>";
    if (!style.font.empty()) html += "</font>";
  }
  return html;
}

std::string RichText::plain() const {
  std::string text;
  for (const Run& run : runs_) text += run.text;
  return text;
}

void RichText::append(std::string_view plain) {
  const Style style = runs_.empty() ? Style() : runs_.back().style;
  add(style, fromPlain(plain).plain());
}

bool RichText::eraseLast() {
  if (runs_.empty()) return false;
  std::string& text = runs_.back().text;
  while (text.size() > 1 && continues(text.back())) text.pop_back();
  text.pop_back();
  if (text.empty()) runs_.pop_back();
  --length_;
  return true;
}

void RichText::truncate(std::size_t characters) {
  if (length_ <= characters) return;
  length_ = characters;
  for (std::size_t i = 0; i < runs_.size(); ++i) {
    const std::size_t have = common::length(runs_[i].text);
    if (have >= characters) {
      runs_[i].text = common::cut(runs_[i].text, characters);
      runs_.resize(characters == 0 ? i : i + 1);
      return;
    }
    characters -= have;
  }
}

void RichText::add(const Style& style, std::string_view text) {
  if (text.empty()) return;
  if (runs_.empty() || runs_.back().style != style) runs_.push_back({style, {}});
  runs_.back().text += text;
  length_ += common::length(text);
}

}  // namespace ui
