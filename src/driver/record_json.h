// Records of any archive as JSON objects, by the field names of the catalogue.
#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

#include "archives/fields.h"

namespace driver {

// {"key": ..., then the fields in record order}: texts, numbers, arrays in their full length. A number
// that is none comes out as null.
nlohmann::ordered_json toJson(const archives::Entry& entry, std::string_view key, std::string_view packed);

// Puts what `object` names into `fields`; an array replaces the whole array. A "key" is passed over. The
// returned text says what does not fit (no such field, wrong type, out of range), empty when all was put.
std::string mergeJson(const nlohmann::ordered_json& object, std::span<archives::NamedField> fields);

}  // namespace driver
