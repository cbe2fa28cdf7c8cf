#include "store/format.h"

#include <bit>
#include <charconv>
#include <cstring>
#include <stdexcept>

#include "common/text.h"

namespace store {
namespace {

static_assert(std::endian::native == std::endian::little, "records are kept little endian");

constexpr int kMostElements =
    10'000;  // far above any real array: a misread format must not ask for gigabytes

class FormatReader {
 public:
  explicit FormatReader(std::string_view text) : text_(text), rest_(text) {}

  Format read() {
    if (rest_.empty()) refuse();
    Format format;
    while (!rest_.empty()) {
      format.fields.push_back(descriptor());
      if (format.fields.back().keyWidth) format.indexed.push_back(static_cast<int>(format.fields.size()));
      if (!rest_.empty() && rest_.front() == ',') rest_.remove_prefix(1);
    }
    return format;
  }

 private:
  FieldFormat descriptor() {
    FieldFormat field{Type::text};
    if (accept('x') || accept('X')) {
      field.keyWidth = number();
    } else if (accept('A')) {
      field.count = number();
    }
    field.type = type();
    if (field.keyWidth && field.type != Type::text) refuse();
    return field;
  }

  bool accept(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  int number() {
    int value = 0;
    const char* end = rest_.data() + rest_.size();
    const auto [stop, error] = std::from_chars(rest_.data(), end, value);
    if (error != std::errc() || value < 1 || value > kMostElements) refuse();
    rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
    return value;
  }

  Type type() {
    for (const Type known : {Type::text, Type::number, Type::int16, Type::int32})
      if (accept(static_cast<char>(known))) return known;
    refuse();
  }

  [[noreturn]] void refuse() const {
    throw std::invalid_argument("not a format string: " + std::string(text_));
  }

  std::string_view text_, rest_;
};

template <class T>
void append(std::string& out, T value) {
  char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  out.append(bytes, sizeof(T));
}

template <class T>
T valueOf(std::string_view bytes) {
  T value{};
  if (bytes.size() == sizeof(T)) std::memcpy(&value, bytes.data(), sizeof(T));
  return value;
}

void put(Encoder& out, const std::string& value) { out.text(value); }
void put(Encoder& out, double value) { out.number(value); }
void put(Encoder& out, std::int16_t value) { out.int16(value); }
void put(Encoder& out, std::int32_t value) { out.int32(value); }

void get(Decoder& in, std::string& value) { value = in.text(); }
void get(Decoder& in, double& value) { value = in.number(); }
void get(Decoder& in, std::int16_t& value) { value = in.int16(); }
void get(Decoder& in, std::int32_t& value) { value = in.int32(); }

template <class T>
const T& as(const Value& value) {
  const T* held = std::get_if<T>(&value);
  if (!held) throw std::invalid_argument("a value of another type");
  return *held;
}

template <class T>
void pack(Encoder& out, const FieldFormat& field, const Value& value) {
  if (!field.count) return put(out, as<T>(value));
  const auto& elements = as<std::vector<T>>(value);
  std::size_t used = elements.size();
  while (used && elements[used - 1] == T{}) --used;
  if (used > static_cast<std::size_t>(field.count)) throw std::invalid_argument("too many elements");
  out.count(used);
  for (std::size_t i = 0; i < used; ++i) put(out, elements[i]);
}

template <class T>
Value unpack(Decoder& in, const FieldFormat& field) {
  if (!field.count) {
    T value{};
    get(in, value);
    return value;
  }
  std::vector<T> elements(static_cast<std::size_t>(field.count));
  const std::size_t used = in.count(elements.size());
  for (std::size_t i = 0; i < used; ++i) get(in, elements[i]);
  return elements;
}

std::size_t sizeOf(Type type) { return type == Type::number ? 8 : type == Type::int32 ? 4 : 2; }

void skip(Decoder& in, const FieldFormat& field) {
  const std::size_t elements = field.count ? in.count(static_cast<std::size_t>(field.count)) : 1;
  if (field.type != Type::text) return in.skip(elements * sizeOf(field.type));
  for (std::size_t i = 0; i < elements; ++i) in.text();
}

}  // namespace

Format parseFormat(std::string_view text) { return FormatReader(text).read(); }

void Encoder::text(std::string_view value) {
  count(value.size());
  out_.append(value);
}

void Encoder::number(double value) { append(out_, value); }
void Encoder::int16(std::int16_t value) { append(out_, value); }
void Encoder::int32(std::int32_t value) { append(out_, value); }

void Encoder::count(std::size_t elements) {
  for (; elements >= 0x80; elements >>= 7) out_.push_back(static_cast<char>(elements | 0x80));
  out_.push_back(static_cast<char>(elements));
}

std::string_view Decoder::take(std::size_t bytes) {
  if (failed_ || bytes > rest_.size()) {
    failed_ = true;
    rest_ = {};
    return {};
  }
  const std::string_view taken = rest_.substr(0, bytes);
  rest_.remove_prefix(bytes);
  return taken;
}

std::string_view Decoder::text() { return take(count(rest_.size())); }
double Decoder::number() { return valueOf<double>(take(sizeof(double))); }
std::int16_t Decoder::int16() { return valueOf<std::int16_t>(take(sizeof(std::int16_t))); }
std::int32_t Decoder::int32() { return valueOf<std::int32_t>(take(sizeof(std::int32_t))); }
void Decoder::skip(std::size_t bytes) { take(bytes); }

std::size_t Decoder::count(std::size_t atMost) {
  std::size_t value = 0;
  for (unsigned shift = 0; shift < 35; shift += 7) {
    const std::string_view byte = take(1);
    if (byte.empty()) return 0;
    value |= static_cast<std::size_t>(byte[0] & 0x7F) << shift;
    if (byte[0] & 0x80) continue;
    if (value <= atMost) return value;
    break;
  }
  take(rest_.size() + 1);  // no such count: fails
  return 0;
}

std::vector<Value> unpack(const Format& format, std::string_view record) {
  Decoder in(record);
  std::vector<Value> values;
  values.reserve(format.fields.size());
  for (const FieldFormat& field : format.fields) {
    switch (field.type) {
      case Type::text:
        values.push_back(unpack<std::string>(in, field));
        break;
      case Type::number:
        values.push_back(unpack<double>(in, field));
        break;
      case Type::int16:
        values.push_back(unpack<std::int16_t>(in, field));
        break;
      case Type::int32:
        values.push_back(unpack<std::int32_t>(in, field));
        break;
    }
  }
  return values;
}

std::string pack(const Format& format, const std::vector<Value>& values) {
  if (values.size() != format.fields.size()) throw std::invalid_argument("values of another format");
  std::string record;
  Encoder out(record);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const FieldFormat& field = format.fields[i];
    switch (field.type) {
      case Type::text:
        pack<std::string>(out, field, values[i]);
        break;
      case Type::number:
        pack<double>(out, field, values[i]);
        break;
      case Type::int16:
        pack<std::int16_t>(out, field, values[i]);
        break;
      case Type::int32:
        pack<std::int32_t>(out, field, values[i]);
        break;
    }
  }
  return record;
}

bool indexKeys(const Format& format, std::string_view record, std::vector<std::string>& keys) {
  Decoder in(record);
  keys.clear();
  for (const FieldFormat& field : format.fields) {
    if (field.keyWidth) {
      keys.push_back(common::cut(in.text(), static_cast<std::size_t>(field.keyWidth)));
    } else {
      skip(in, field);
    }
  }
  return !in.failed() && in.atEnd();
}

}  // namespace store
