#include "driver/record_json.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace driver {
namespace {

using Json = nlohmann::ordered_json;

std::optional<archives::Scalar> scalarOf(const Json& json) {
  if (json.is_string()) return json.get<std::string>();
  if (json.is_number()) return json.get<double>();
  return std::nullopt;
}

bool put(std::span<archives::NamedField> fields, std::string_view name, const Json& given) {
  if (!given.is_array()) {
    const auto scalar = scalarOf(given);
    return scalar && archives::setField(fields, name, *scalar);
  }
  std::vector<archives::Scalar> elements;
  for (const Json& element : given) {
    auto scalar = scalarOf(element);
    if (!scalar) return false;
    elements.push_back(std::move(*scalar));
  }
  return archives::setField(fields, name, elements);
}

}  // namespace

Json toJson(const archives::Entry& entry, std::string_view key, std::string_view packed) {
  Json object;
  object["key"] = key;
  for (const auto& field : archives::fieldsOf(entry, packed))
    object[std::string(field.name)] = std::visit([](const auto& value) { return Json(value); }, field.value);
  return object;
}

std::string mergeJson(const Json& object, std::span<archives::NamedField> fields) {
  if (!object.is_object()) return "the record is no JSON object";
  for (const auto& item : object.items()) {
    const std::string& name = item.key();
    if (name == "key") continue;
    const bool known = std::any_of(fields.begin(), fields.end(),
                                   [&](const archives::NamedField& field) { return field.name == name; });
    if (!known) return "no such field: " + name;
    if (!put(fields, name, item.value())) return "not what the field holds: " + name;
  }
  return {};
}

}  // namespace driver
