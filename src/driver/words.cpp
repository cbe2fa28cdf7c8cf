#include "driver/words.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

namespace driver {
namespace {

constexpr std::string_view kBlanks = " \t\r";

// The length of the quoted word at the start of `text`, its quotes included; 0 when it does not end.
std::size_t quotedLength(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\\') ++i;
  }
  return 0;
}

std::optional<std::string> quotedWord(std::string_view text) {
  const auto json = nlohmann::json::parse(text, nullptr, false);
  if (!json.is_string()) return std::nullopt;
  return json.get<std::string>();
}

}  // namespace

Words readWords(std::string_view line, std::size_t most) {
  Words result;
  result.rest = line;
  std::string_view& rest = result.rest;
  while (true) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty() || result.words.size() == most) return result;
    if (rest.front() == '#' && result.words.empty()) return result;
    if (rest.front() != '"') {
      const auto end = std::min(rest.find_first_of(kBlanks), rest.size());
      result.words.emplace_back(rest.substr(0, end));
      rest.remove_prefix(end);
      continue;
    }
    const auto end = quotedLength(rest);
    auto word = quotedWord(rest.substr(0, end));
    const bool ended = end == rest.size() || (end && kBlanks.find(rest[end]) != std::string_view::npos);
    if (!word || !ended) {
      result.error = "a quoted word is no JSON string";
      return result;
    }
    result.words.push_back(std::move(*word));
    rest.remove_prefix(end);
  }
}

std::optional<int> wholeNumber(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace driver
