#include "archives/fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace archives {
namespace {

bool numberOf(const Scalar& value, double& number) {
  if (const auto* given = std::get_if<double>(&value)) {
    number = *given;
    return std::isfinite(number);
  }
  const auto& text = std::get<std::string>(value);
  number = 0;
  if (text.empty()) return true;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  return error == std::errc() && stop == end && std::isfinite(number);
}

bool assign(std::string& field, const Scalar& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text) field = *text;
  return text != nullptr;
}

bool assign(double& field, const Scalar& value) {
  double number = 0;
  if (!numberOf(value, number)) return false;
  field = number;
  return true;
}

template <class Integer>
bool assign(Integer& field, const Scalar& value) {
  using Limits = std::numeric_limits<Integer>;
  double number = 0;
  if (!numberOf(value, number) || number != std::trunc(number)) return false;
  if (number < Limits::min() || number > Limits::max()) return false;
  field = static_cast<Integer>(number);
  return true;
}

template <class T>
constexpr bool isArray = false;
template <class T>
constexpr bool isArray<std::vector<T>> = true;

template <class T>
bool assign(std::vector<T>& field, std::span<const Scalar> elements) {
  if (elements.size() > field.size()) return false;
  std::vector<T> values(field.size());
  for (std::size_t i = 0; i < elements.size(); ++i)
    if (!assign(values[i], elements[i])) return false;
  field = std::move(values);
  return true;
}

store::Value* valueOf(std::span<NamedField> fields, std::string_view name) {
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.name == name; });
  return found == fields.end() ? nullptr : &found->value;
}

}  // namespace

std::vector<NamedField> fieldsOf(const Entry& entry, std::string_view packed) {
  auto values = store::unpack(store::parseFormat(entry.format), packed);
  std::vector<NamedField> fields;
  for (std::size_t i = 0; i < values.size(); ++i) fields.push_back({entry.names[i], std::move(values[i])});
  return fields;
}

std::string packedOf(const Entry& entry, std::span<const NamedField> fields) {
  std::vector<store::Value> values;
  for (const NamedField& field : fields) values.push_back(field.value);
  return store::pack(store::parseFormat(entry.format), values);
}

bool setField(std::span<NamedField> fields, std::string_view name, const Scalar& value) {
  store::Value* target = valueOf(fields, name);
  if (!target) return false;
  return std::visit(
      [&](auto& field) {
        if constexpr (isArray<std::decay_t<decltype(field)>>)
          return false;
        else
          return assign(field, value);
      },
      *target);
}

bool setField(std::span<NamedField> fields, std::string_view name, std::span<const Scalar> elements) {
  store::Value* target = valueOf(fields, name);
  if (!target) return false;
  return std::visit(
      [&](auto& field) {
        if constexpr (isArray<std::decay_t<decltype(field)>>)
          return assign(field, elements);
        else
          return false;
      },
      *target);
}

}  // namespace archives
