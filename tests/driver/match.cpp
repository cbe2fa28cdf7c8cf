#include "driver/match.h"

namespace test {
namespace {

using nlohmann::json;

std::string found(const std::string& path, const json& answer) {
  return (path.empty() ? "/" : path) + " is " + answer.dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string compare(const json& answer, const json& wanted, const std::string& path);

std::string compareMembers(const json& answer, const json& wanted, const std::string& path) {
  for (const auto& [name, value] : wanted.items()) {
    const std::string at = std::string(path).append("/").append(name);
    if (!answer.contains(name)) return at + " is missing";
    if (auto fault = compare(answer[name], value, at); !fault.empty()) return fault;
  }
  return {};
}

std::string compareElements(const json& answer, const json& wanted, const std::string& path) {
  const bool open = !wanted.empty() && wanted.back() == "<rest>";
  const std::size_t count = wanted.size() - (open ? 1 : 0);
  if (open ? answer.size() < count : answer.size() != count) return found(path, answer);
  for (std::size_t i = 0; i < count; ++i)
    if (auto fault = compare(answer[i], wanted[i], path + "/" + std::to_string(i)); !fault.empty())
      return fault;
  return {};
}

std::string compare(const json& answer, const json& wanted, const std::string& path) {
  if (wanted == "<any>") return {};
  if (wanted.is_object() && answer.is_object()) return compareMembers(answer, wanted, path);
  if (wanted.is_array() && answer.is_array()) return compareElements(answer, wanted, path);
  return answer == wanted ? std::string() : found(path, answer);
}

}  // namespace

std::string mismatch(const json& answer, const json& wanted) { return compare(answer, wanted, {}); }

}  // namespace test
