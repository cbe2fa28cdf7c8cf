// A small archive to test on, and short names for what is done to it.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/record_store.h"
#include "tools/scratch.h"

namespace test {

// Keys of 8; field 1 is indexed by 5 characters, field 3 by 8.
inline constexpr const char* kFormat = "x5$,#,X8$,$";

inline std::string record(std::string_view conto, double importo, std::string_view data = "",
                          std::string_view nota = "") {
  std::string packed;
  store::Encoder out(packed);
  out.text(conto);
  out.number(importo);
  out.text(data);
  out.text(nota);
  return packed;
}

inline double amountOf(std::string_view record) {
  store::Decoder in(record);
  in.text();
  return in.number();
}

// One archive that is open in one station.
class Opened {
 public:
  Opened(store::RecordStore& store, const std::string& stem) : store_(store) {
    opened = store.VmxOpen(stem, handle);
  }
  ~Opened() { store_.VmxClose(handle); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  store::Handle handle = 0;
  store::Code opened = store::kOk;
  store::Found found;

  store::Code search(int index, std::string_view key) { return get(index, store::Get::search, key); }
  store::Code next(int index) { return get(index, store::Get::next, {}); }
  store::Code previous(int index) { return get(index, store::Get::previous, {}); }
  store::Code bof(int index) { return store_.VmxBOF(handle, index); }
  store::Code eof(int index) { return store_.VmxEOF(handle, index); }
  store::Code put(std::string_view key, std::string_view packed, store::Put mode = store::Put::write) {
    return store_.VmxPut(handle, key, packed, mode);
  }
  store::Code erase(std::string_view key) { return store_.VmxDelete(handle, key); }
  store::Code lock(std::string_view key) { return store_.VmxLock(handle, key); }
  store::Code unlock(std::string_view key) { return store_.VmxUnlock(handle, key); }
  store::Code flush() { return store_.VmxFlush(handle); }

  // The primary keys from the first to the last of an index, each followed by a blank.
  std::string all(int index) {
    std::string keys;
    for (bof(index); next(index) == store::kOk;) keys += found.primaryKey + ' ';
    return keys;
  }
  std::string backwards(int index) {
    std::string keys;
    for (eof(index); previous(index) == store::kOk;) keys += found.primaryKey + ' ';
    return keys;
  }

 private:
  store::Code get(int index, store::Get mode, std::string_view key) {
    return store_.VmxGet(handle, index, mode, key, found);
  }
  store::RecordStore& store_;
};

// The tests run twice, and the stations that they start along with them: by themselves, and as on a share.
inline bool onShare() { return std::getenv("TARVEX_TEST_SHARE") != nullptr; }

inline store::StoreOptions optionsOfTests() {
  store::StoreOptions options;
  options.share = onShare();
  options.logOf = [](std::string_view archive) {
    return archive.starts_with("2003") ? std::string(archive.substr(4, 2)).append("--.grp") : "--.grp";
  };
  return options;
}

}  // namespace test
