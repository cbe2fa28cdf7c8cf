// A record's layout, declared once, in the .cpp of the record: its fields in record order with their names.
// Encoding, decoding, the driver's dump, export and the proof against the archive's format string come from
// this one declaration.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "archives/layout.h"
#include "store/format.h"

namespace archives {

template <class T>
inline constexpr char kMark = 0;
template <>
inline constexpr char kMark<std::string> = '$';
template <>
inline constexpr char kMark<double> = '#';
template <>
inline constexpr char kMark<std::int16_t> = '%';
template <>
inline constexpr char kMark<std::int32_t> = '&';

template <class T>
struct Shape {
  using element = T;
  static constexpr int count = 0;
};
template <class T, std::size_t N>
struct Shape<std::array<T, N>> {
  using element = T;
  static constexpr int count = static_cast<int>(N);
};

struct Indexed {
  int width = 0;
  char mark = 'x';
};

template <class R, class T>
struct Field {
  std::string_view name;
  T R::*member;
  Indexed index;
};

template <class R, class T>
constexpr Field<R, T> field(std::string_view name, T R::*member, Indexed index = {}) {
  static_assert(kMark<typename Shape<T>::element> != 0, "no archive descriptor for this type");
  return {name, member, index};
}

// The format string that a layout amounts to, for the static_assert beside each record.
struct FormatText {
  char chars[800]{};
  int size = 0;
  constexpr void put(char c) { chars[size++] = c; }
  constexpr void put(int n) {
    if (n >= 10) put(n / 10);
    put(static_cast<char>('0' + n % 10));
  }
  // Commas aside: "##" is the same list as "#,#", and no descriptor reads otherwise without them.
  constexpr bool operator==(std::string_view other) const {
    std::size_t at = 0;
    for (const char c : std::string_view(chars, static_cast<std::size_t>(size))) {
      if (c == ',') continue;
      while (at < other.size() && other[at] == ',') ++at;
      if (at == other.size() || other[at++] != c) return false;
    }
    while (at < other.size() && other[at] == ',') ++at;
    return at == other.size();
  }
};

template <class... F>
constexpr FormatText formatOf(const std::tuple<F...>& fields) {
  FormatText text;
  auto add = [&]<class R, class T>(const Field<R, T>& f) {
    if (text.size) text.put(',');
    if (f.index.width) {
      text.put(f.index.mark);
      text.put(f.index.width);
    }
    if constexpr (Shape<T>::count > 0) {
      text.put('A');
      text.put(Shape<T>::count);
    }
    text.put(kMark<typename Shape<T>::element>);
  };
  std::apply([&](const auto&... f) { (add(f), ...); }, fields);
  return text;
}

// The fields of a record, as a tuple of field(): specialized by each record before its Codec is instantiated.
template <class R>
constexpr std::tuple<> kFields{};

namespace detail {

inline void put(store::Encoder& out, const std::string& value) { out.text(value); }
inline void put(store::Encoder& out, double value) { out.number(value); }
inline void put(store::Encoder& out, std::int16_t value) { out.int16(value); }
inline void put(store::Encoder& out, std::int32_t value) { out.int32(value); }
template <class T, std::size_t N>
void put(store::Encoder& out, const std::array<T, N>& values) {
  std::size_t used = N;
  while (used && values[used - 1] == T{}) --used;
  out.count(used);
  for (std::size_t i = 0; i < used; ++i) put(out, values[i]);
}

inline void get(store::Decoder& in, std::string& value) { value = in.text(); }
inline void get(store::Decoder& in, double& value) { value = in.number(); }
inline void get(store::Decoder& in, std::int16_t& value) { value = in.int16(); }
inline void get(store::Decoder& in, std::int32_t& value) { value = in.int32(); }
template <class T, std::size_t N>
void get(store::Decoder& in, std::array<T, N>& values) {
  const std::size_t used = in.count(N);
  for (std::size_t i = 0; i < used; ++i) get(in, values[i]);
  for (std::size_t i = used; i < N; ++i) values[i] = T{};
}

}  // namespace detail

template <class R>
void Codec<R>::encode(const R& record, std::string& packed) {
  store::Encoder out(packed);
  std::apply([&](const auto&... f) { (detail::put(out, record.*(f.member)), ...); }, kFields<R>);
}

template <class R>
bool Codec<R>::decode(std::string_view packed, R& record) {
  store::Decoder in(packed);
  std::apply([&](const auto&... f) { (detail::get(in, record.*(f.member)), ...); }, kFields<R>);
  return !in.failed();
}

template <class R>
std::vector<std::string_view> Codec<R>::names() {
  return std::apply([](const auto&... f) { return std::vector<std::string_view>{f.name...}; }, kFields<R>);
}

}  // namespace archives
