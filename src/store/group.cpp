#include "store/group.h"

#include <stdexcept>

#include "store/check.h"
#include "store/station.h"

namespace store {
namespace {

constexpr std::uint64_t kLargeLog = 4 << 20;

std::string pathOf(std::string_view log) { return std::string(log).append(".grp"); }

}  // namespace

Group::Group(RecordStore& store, std::string_view log, int archive, int position) : store_(store) {
  store_.impl_->beginGroup(pathOf(log), archive, position);
}

Group::~Group() {
  if (open_) store_.impl_->endGroup(false);
}

bool Group::commit() {
  if (!open_) return false;
  open_ = false;
  RecordStore::Impl& station = *store_.impl_;
  StandingGroup& group = *station.group;
  if (group.spoiled == kOk) group.spoiled = station.commitGroup();
  store_.LastArchiveResult = group.spoiled;
  station.endGroup(group.spoiled == kOk);
  return store_.LastArchiveResult == kOk;
}

Code RecordStore::Impl::noted(Code code) {
  if (group && code >= kDiskFull && group->spoiled == kOk) group->spoiled = code;
  return code;
}

void RecordStore::Impl::beginGroup(const std::string& logPath, int archive, int position) {
  if (group) throw std::logic_error("a group stands already in this station");
  Company& company = companyOf(logPath);
  group.emplace(StandingGroup{company, archive, position, kOk, {}});
  noted(lockGroup(company));
  for (auto& [stem, member] : members)
    if (inGroup(member)) member.locks.beginGroup();
}

Code RecordStore::Impl::lockGroup(Company& company) {
  Code code = kOk;
  for (int tries = 0; tries < 2; ++tries) {
    if (code = enter(company); code != kOk) return code;
    code = company.log.lockGroup(LockWait(options.onWait));
    if (code == kOk) return catchUp(company);
    company.log.close();  // the company was made anew, and its log with it
  }
  return code;
}

Code RecordStore::Impl::commitGroup() {
  Company& company = group->company;
  LogRecord record;
  for (const auto& [stem, member] : members) {
    if (!inGroup(member) || !member.overlay || member.overlay->empty()) continue;
    if (member.table->stale()) return kSystem;
    record.entries.push_back({nameOf(stem), member.table->uuid(), {}, member.overlay->operations()});
  }
  if (record.entries.empty()) return kOk;
  if (const Code code = company.log.lockLog(LockWait(options.onWait))) return code;
  Code code = kOk;
  for (LogEntry& entry : record.entries)
    if (code == kOk)
      code = memberOf(directoryOf(company.log.path()) + entry.archive).table->mark(entry.previous);
  if (code == kOk) code = company.log.append(record);
  if (code != kOk) {
    company.log.close();  // what the disk holds of it is asked anew, and all its locks go with it
    return code;
  }
  // The group is committed. What cannot be applied now is applied before anybody reads it.
  company.behind = applyGroup(company, record) != kOk;
  company.log.unlockLog();
  return kOk;
}

Code RecordStore::Impl::applyGroup(Company& company, const LogRecord& record) {
  for (const LogEntry& entry : record.entries) {
    const Member& member = memberOf(directoryOf(company.log.path()) + entry.archive);
    if (const Code code = member.table->apply(entry.operations, record.mark)) return code;
  }
  return company.log.markApplied();
}

void RecordStore::Impl::endGroup(bool committed) {
  Company& company = group->company;
  for (auto& [stem, member] : members) {
    if (!inGroup(member)) continue;
    if (member.overlay) ++member.epoch;
    member.overlay.reset();
    member.locks.endGroup(committed);
  }
  company.log.unlockGroup();
  const StandingGroup ended = std::move(*group);
  group.reset();
  if (ended.spoiled != kOk) {
    tell(describeFailure(ended.spoiled, Operation::write, ended.archive, ended.position));
  } else {
    for (const ArchiveFailure& failure : ended.told) tell(failure);
  }
  // A failure here costs nothing but a longer log; the next group tries again.
  if (committed && company.log.isOpen() && company.log.bytes() > kLargeLog) settle(company);
}

}  // namespace store
