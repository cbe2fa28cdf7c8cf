#include "store/record_store.h"

#include "store/station.h"

namespace store {

RecordStore::RecordStore(StoreOptions options) : impl_(std::make_unique<Impl>(std::move(options))) {}
RecordStore::~RecordStore() = default;

Code RecordStore::VmxCreate(const std::string& stem, int keyLength, const std::string& format) {
  return LastArchiveResult = impl_->noted(impl_->create(stem, keyLength, format));
}

bool RecordStore::isOpenElsewhere(const std::string& stem) { return impl_->isOpenElsewhere(stem); }

Code RecordStore::VmxKill(const std::string& stem) {
  return LastArchiveResult = impl_->noted(impl_->kill(stem));
}

std::vector<Code> RecordStore::copyArchives(const std::vector<ArchiveCopy>& copies) {
  std::vector<Code> results(copies.size(), kOk);
  if (!copies.empty()) LastArchiveResult = impl_->copyAll(copies, results);
  return results;
}

Code RecordStore::VmxOpen(const std::string& stem, Handle& handle) {
  const Code code = impl_->open(stem, handle);
  // An archive that is not there does not spoil a group by itself: some are made when they are first missed.
  return LastArchiveResult = code == kSystem ? code : impl_->noted(code);
}

Code RecordStore::VmxClose(Handle handle) { return LastArchiveResult = impl_->noted(impl_->close(handle)); }

Code RecordStore::VmxFlush(Handle handle) { return LastArchiveResult = impl_->noted(impl_->flush(handle)); }

Code RecordStore::VmxBOF(Handle handle, int index) {
  return LastArchiveResult = impl_->noted(impl_->stand(handle, index, &Cursor::toStart));
}

Code RecordStore::VmxEOF(Handle handle, int index) {
  return LastArchiveResult = impl_->noted(impl_->stand(handle, index, &Cursor::toEnd));
}

Code RecordStore::VmxGet(Handle handle, int index, Get mode, std::string_view key, Found& found) {
  return LastArchiveResult = impl_->noted(impl_->get(handle, index, mode, key, found));
}

Code RecordStore::VmxPut(Handle handle, std::string_view primaryKey, std::string_view record, Put mode) {
  return LastArchiveResult = impl_->noted(impl_->put(handle, primaryKey, record, mode));
}

Code RecordStore::VmxDelete(Handle handle, std::string_view primaryKey) {
  return LastArchiveResult = impl_->noted(impl_->erase(handle, primaryKey));
}

Code RecordStore::VmxLock(Handle handle, std::string_view primaryKey) {
  return LastArchiveResult = impl_->noted(impl_->lock(handle, primaryKey));
}

Code RecordStore::VmxUnlock(Handle handle, std::string_view primaryKey) {
  return LastArchiveResult = impl_->noted(impl_->unlock(handle, primaryKey));
}

void RecordStore::spinLock(Handle handle, std::string_view primaryKey) {
  while (VmxLock(handle, primaryKey) == kNotFound) {
  }
}

const Format& RecordStore::formatOf(Handle handle) const {
  static const Format none;
  const OpenArchive* archive = impl_->find(handle);
  return archive ? archive->member->table->format() : none;
}

Code RecordStore::settle() { return LastArchiveResult = impl_->settleAll(); }

Code RecordStore::VTVal(const std::string& stem, const Progress& progress) {
  return LastArchiveResult = impl_->validate(stem, progress);
}

Code RecordStore::VTRebuild(const std::string& stem, const Progress& progress) {
  return LastArchiveResult = impl_->rebuild(stem, progress);
}

Code RecordStore::VTRepair(const std::string& stem, std::string& report, const Progress& progress) {
  return LastArchiveResult = impl_->repair(stem, report, progress);
}

void RecordStore::CheckArchiveResult(Operation operation, int archive, int position) {
  impl_->check(LastArchiveResult, operation, archive, position);
}

}  // namespace store
