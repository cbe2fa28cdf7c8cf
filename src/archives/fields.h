// The fields of a packed record by their names, for those who do not know its struct: the driver, the export,
// the contents of a new installation.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "archives/catalogue.h"
#include "store/format.h"

namespace archives {

struct NamedField {
  std::string_view name;  // the catalogue's
  store::Value value;     // an array in its full length
};

// In record order; of an empty `packed`, and of fields that it lacks, empty values.
std::vector<NamedField> fieldsOf(const Entry& entry, std::string_view packed);

std::string packedOf(const Entry& entry, std::span<const NamedField> fields);

// A text or a number as it comes from outside.
using Scalar = std::variant<std::string, double>;

// Sets one field. A text field takes a text alone; a numeric one takes a finite number or the text of one
// ("77.47", the whole of it; an empty text is 0), which must be whole and in range for an integer. An array
// takes its elements from element 0 on, those left out become empty. False, and nothing changed, when there
// is no such field or a value does not fit it.
bool setField(std::span<NamedField> fields, std::string_view name, const Scalar& value);
bool setField(std::span<NamedField> fields, std::string_view name, std::span<const Scalar> elements);

}  // namespace archives
