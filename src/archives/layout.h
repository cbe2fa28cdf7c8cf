// What every archive says of its record beside the struct: how the archive is called and created. The
// fields themselves are told in the .cpp of the record (archives/codec.h), so that no reader of the struct
// pays for them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace archives {

// Each record specializes this beside its struct: the archive's `prefix`, its `code` in the failure boxes
// and its `format` string as the archive is created with it.
template <class R>
struct Layout;

// Between the struct and the packed record of the store.
template <class R>
struct Codec {
  static void encode(const R& record, std::string& packed);
  static bool decode(std::string_view packed, R& record);  // false: the bytes do not fit
  static std::vector<std::string_view> names();            // of the fields, in record order
};

template <class R>
void encode(const R& record, std::string& packed) {
  Codec<R>::encode(record, packed);
}

template <class R>
bool decode(std::string_view packed, R& record) {
  return Codec<R>::decode(packed, record);
}

}  // namespace archives
