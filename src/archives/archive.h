// The typed handle of an archive: B receives what is read, A is filled and written. One shape for every
// archive of the system; the caller reports through RecordStore::CheckArchiveResult after each call.
#pragma once

#include <string>
#include <string_view>

#include "archives/layout.h"
#include "store/record_store.h"

namespace archives {

template <class R>
class Archive {
 public:
  static constexpr int code = Layout<R>::code;  // of the failure boxes, 1 to 36

  explicit Archive(store::RecordStore& store) : store_(store) {}
  ~Archive() {
    if (handle_) store_.VmxClose(handle_);
  }
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  R A{}, B{};
  const std::string& indexKey() const { return found_.indexKey; }  // of the last record delivered
  const std::string& primaryKey() const { return found_.primaryKey; }

  bool isOpen() const { return handle_ != 0; }
  store::Code open(const std::string& stem) { return store_.VmxOpen(stem, handle_); }
  store::Code close() {
    const store::Handle handle = handle_;
    handle_ = 0;
    return store_.VmxClose(handle);
  }

  store::Code bof(int index) { return store_.VmxBOF(handle_, index); }
  store::Code eof(int index) { return store_.VmxEOF(handle_, index); }
  store::Code search(int index, std::string_view key) { return get(index, store::Get::search, key); }
  store::Code next(int index) { return get(index, store::Get::next, {}); }
  store::Code previous(int index) { return get(index, store::Get::previous, {}); }

  store::Code put(std::string_view primaryKey, store::Put mode) {
    encode(A, packed_);
    return store_.VmxPut(handle_, primaryKey, packed_, mode);
  }
  store::Code erase(std::string_view primaryKey) { return store_.VmxDelete(handle_, primaryKey); }
  store::Code flush() { return store_.VmxFlush(handle_); }
  void spinLock(std::string_view primaryKey) { store_.spinLock(handle_, primaryKey); }
  store::Code lock(std::string_view primaryKey) { return store_.VmxLock(handle_, primaryKey); }
  store::Code unlock(std::string_view primaryKey) { return store_.VmxUnlock(handle_, primaryKey); }

 private:
  store::Code get(int index, store::Get mode, std::string_view key) {
    const store::Code result = store_.VmxGet(handle_, index, mode, key, found_);
    if (result != store::kOk) return result;
    if (decode(found_.record, B)) return result;
    return store_.LastArchiveResult = store::kDisk;  // bytes that are no such record: a damaged archive
  }

  store::RecordStore& store_;
  store::Handle handle_ = 0;
  store::Found found_;
  std::string packed_;
};

}  // namespace archives
