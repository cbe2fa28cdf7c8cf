#include "common/text.h"

#include <charconv>
#include <cmath>

namespace common {
namespace {

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Bytes of the first `characters` characters.
std::size_t bytesOf(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; at < text.size() && characters; --characters) {
    ++at;
    while (at < text.size() && continues(text[at])) ++at;
  }
  return at;
}

// Length in bytes of the valid character at the start of `text`; 0 when there is none.
std::size_t validCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return 1;
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i)
    if (!continues(text[i])) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool beyond = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
  return overlong || beyond ? 0 : size;
}

}  // namespace

std::size_t length(std::string_view text) {
  std::size_t characters = 0;
  for (const char c : text) characters += !continues(c);
  return characters;
}

std::string cut(std::string_view text, std::size_t width) {
  return std::string(text.substr(0, bytesOf(text, width)));
}

std::string right(std::string_view text, std::size_t width) {
  const std::size_t all = length(text);
  return all <= width ? std::string(text) : std::string(text.substr(bytesOf(text, all - width)));
}

std::string fit(std::string_view text, std::size_t width, Align align) {
  std::string cell = cut(text, width);
  const std::string blanks(width - length(cell), ' ');
  return align == Align::right ? blanks + cell : cell + blanks;
}

std::string figure(std::string_view text, std::size_t width) {
  const std::size_t have = length(text);
  return std::string(have < width ? width - have : 0, ' ').append(text);
}

std::string zeroFill(std::string_view text, std::size_t width) {
  const std::size_t have = length(text);
  return have >= width ? std::string(text) : std::string(width - have, '0').append(text);
}

std::string zeroFill(long long number, std::size_t width) { return zeroFill(std::to_string(number), width); }

std::string trim(std::string_view text) {
  const auto from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return {};
  return std::string(text.substr(from, text.find_last_not_of(' ') - from + 1));
}

std::string upper(std::string_view text) {
  std::string result(text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    if (result[i] >= 'a' && result[i] <= 'z') result[i] = static_cast<char>(result[i] - 'a' + 'A');
    // U+00E0 to U+00FE, but for the sign of division, are C3 A0 to C3 BE: 20 hex above their capitals.
    const auto byte = static_cast<unsigned char>(result[i]);
    if (i > 0 && result[i - 1] == '\xC3' && byte >= 0xA0 && byte <= 0xBE && byte != 0xB7)
      result[i] = static_cast<char>(byte - 0x20);
  }
  return result;
}

std::string lower(std::string_view text) {
  std::string result(text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    if (result[i] >= 'A' && result[i] <= 'Z') result[i] = static_cast<char>(result[i] - 'A' + 'a');
    // The other way round: the sign of multiplication stands among the capitals.
    const auto byte = static_cast<unsigned char>(result[i]);
    if (i > 0 && result[i - 1] == '\xC3' && byte >= 0x80 && byte <= 0x9E && byte != 0x97)
      result[i] = static_cast<char>(byte + 0x20);
  }
  return result;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t size = validCharacter(text);
    if (size == 0) return false;
    text.remove_prefix(size);
  }
  return true;
}

std::string cleaned(std::string_view text, bool keepLines) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t size = validCharacter(text);
    const bool line = keepLines && (text[0] == '\n' || text[0] == '\t');
    const bool control = static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F ||
                         (size == 2 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0);
    if (size == 0)
      result += "\xEF\xBF\xBD";
    else if (control && !line)
      result += ' ';
    else
      result += text.substr(0, size);
    text.remove_prefix(size ? size : 1);
  }
  return result;
}

std::string numberText(double number) {
  char digits[400];
  if (number == 0) number = 0;  // no sign before a zero
  const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr;
  return (std::signbit(number) ? "" : " ") + std::string(digits, end);
}

double numberValue(std::string_view text) {
  const auto from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return 0;
  text.remove_prefix(from);
  if (text.front() == '+') {
    text.remove_prefix(1);
    if (text.starts_with('-')) return 0;
  }
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return std::isfinite(value) ? value : 0;
}

}  // namespace common
