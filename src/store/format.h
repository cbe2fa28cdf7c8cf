// The format string of an archive: its fields in record order, which of them are indexed, and the packed
// form in which a record is kept.
//
// A descriptor is `$` (text), `#` (8-byte number), `%` (16-bit integer) or `&` (32-bit integer), with
// `A<n>` in front for an array of n elements, or `x<n>` / `X<n>` in front of a text that is indexed by its
// first n characters. Descriptors are parted by commas; a string without commas ("$$$") is the same list,
// and nothing stands behind a trailing comma.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace store {

enum class Type : char { text = '$', number = '#', int16 = '%', int32 = '&' };

struct FieldFormat {
  Type type;
  int count = 0;     // elements of an array; 0 for a single value
  int keyWidth = 0;  // characters of the index key; 0 when not indexed
};

struct Format {
  std::vector<FieldFormat> fields;  // field N of the index numbers is fields[N - 1]
  std::vector<int> indexed;         // numbers of the indexed fields, ascending
};

// Throws std::invalid_argument for a text that is no format string.
Format parseFormat(std::string_view text);

// Packed form, field by field: a text is its length (varint) and its bytes, a number 8 bytes, an integer 2 or
// 4 bytes (little endian); an array is the count of elements up to its last used one (varint), then those.
class Encoder {
 public:
  explicit Encoder(std::string& out) : out_(out) { out_.clear(); }
  void text(std::string_view value);
  void number(double value);
  void int16(std::int16_t value);
  void int32(std::int32_t value);
  void count(std::size_t elements);

 private:
  std::string& out_;
};

// Reads what Encoder wrote. A record that ends early or holds an impossible length sets failed() and
// yields empty values from there on; nothing throws and nothing beyond the bytes is read.
class Decoder {
 public:
  explicit Decoder(std::string_view record) : rest_(record) {}
  std::string_view text();
  double number();
  std::int16_t int16();
  std::int32_t int32();
  std::size_t count(std::size_t atMost);
  void skip(std::size_t bytes);
  bool failed() const { return failed_; }
  bool atEnd() const { return rest_.empty(); }

 private:
  std::string_view take(std::size_t bytes);
  std::string_view rest_;
  bool failed_ = false;
};

// A record whose struct nobody knows: one value for each field, an array as a vector of full length.
using Value = std::variant<std::string, double, std::int16_t, std::int32_t, std::vector<std::string>,
                           std::vector<double>, std::vector<std::int16_t>, std::vector<std::int32_t>>;
std::vector<Value> unpack(const Format& format, std::string_view record);  // missing fields come out empty
// Throws std::invalid_argument for values that are not of that format.
std::string pack(const Format& format, const std::vector<Value>& values);

// The index keys of a packed record, in the order of format.indexed: the first keyWidth characters each.
// False when the record does not fit the format.
bool indexKeys(const Format& format, std::string_view record, std::vector<std::string>& keys);

}  // namespace store
