#include <optional>
#include <vector>

#include "app/verify.h"
#include "archives/catalogue.h"
#include "common/text.h"
#include "driver/commands.h"
#include "driver/driver.h"
#include "driver/record_json.h"

namespace driver::command {
namespace {

using Json = nlohmann::ordered_json;

struct Named {
  const archives::Entry* entry = nullptr;  // null: the call has failed
  std::string stem;                        // with its directory
};

// The archive that the first word names, by a bare prefix or a full name.
Named archiveOf(Call& call) {
  const tarvex::Session& session = call.driver.session();
  const std::string& name = call.word(1);
  if (const archives::Entry* entry = archives::find(name)) {
    if (entry->scope == archives::Scope::installation || !session.CompanyCode.empty())
      return {entry, session.stem(name)};
    call.fail("no company is open");
    return {};
  }
  if (const archives::Entry* entry = archives::entryOf(name)) return {entry, session.DataDirectory + name};
  call.fail("no such archive: " + name);
  return {};
}

// An archive open for one command.
class Opened {
 public:
  explicit Opened(Call& call) : store_(call.driver.session().store), named_(archiveOf(call)) {
    if (!named_.entry) return;
    const store::Code code = store_.VmxOpen(named_.stem, handle_);
    if (code == store::kOk) return;
    handle_ = 0;
    call.fail("cannot be opened: " + call.word(1) + " (code " + std::to_string(code) + ")");
  }
  ~Opened() {
    if (handle_) store_.VmxClose(handle_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  explicit operator bool() const { return handle_ != 0; }
  store::Handle handle() const { return handle_; }
  const archives::Entry& entry() const { return *named_.entry; }
  store::RecordStore& store() { return store_; }

 private:
  store::RecordStore& store_;
  Named named_;
  store::Handle handle_ = 0;
};

bool keyFits(Call& call, const archives::Entry& entry) {
  const std::string& key = call.word(2);
  const auto longest = static_cast<std::size_t>(entry.keyLength);
  if (!key.empty() && (entry.keyLength == 0 || common::length(key) <= longest)) return true;
  call.fail("no key of this archive: " + key);
  return false;
}

// Gives the archive back when no lock is held on it any more.
void closeUnused(Call& call, const std::string& stem) {
  const auto held = call.driver.locks.find(stem);
  if (held == call.driver.locks.end() || !held->second.counts.empty()) return;
  if (held->second.handle) call.driver.session().store.VmxClose(held->second.handle);
  call.driver.locks.erase(held);
}

std::string failure(store::Code code) { return "the archive answers " + std::to_string(code); }

}  // namespace

void dump(Call& call) {
  Opened archive(call);
  if (!archive) return;
  const bool one = call.size() > 2;
  store::Found found;
  Json records = Json::array();
  const auto add = [&] { records.push_back(toJson(archive.entry(), found.primaryKey, found.record)); };
  store::RecordStore& store = archive.store();
  store::Code code = one ? store.VmxGet(archive.handle(), 0, store::Get::search, call.word(2), found)
                         : store.VmxBOF(archive.handle(), 0);
  if (one && code == store::kOk && found.primaryKey == call.word(2)) add();  // a longer key is cut
  if (!one && code == store::kOk)
    while ((code = store.VmxGet(archive.handle(), 0, store::Get::next, {}, found)) == store::kOk) add();
  if (code != store::kOk && code != store::kNotFound) return call.fail(failure(code));
  call.add("records", std::move(records));
}

void put(Call& call) {
  const Json object = Json::parse(call.rest(), nullptr, false);
  Opened archive(call);
  if (!archive || !keyFits(call, archive.entry())) return;
  if (object.is_object() && object.value("key", Json(call.word(2))) != call.word(2))
    return call.fail("the record bears another key");
  store::RecordStore& store = archive.store();
  store::Found found;
  const store::Code read = store.VmxGet(archive.handle(), 0, store::Get::search, call.word(2), found);
  if (read != store::kOk && read != store::kNotFound) return call.fail(failure(read));
  auto fields = archives::fieldsOf(archive.entry(), read == store::kOk ? found.record : std::string());
  const std::string error = mergeJson(object, fields);
  if (!error.empty()) return call.fail(error);
  const std::string record = archives::packedOf(archive.entry(), fields);
  store::Code code = store.VmxPut(archive.handle(), call.word(2), record, store::Put::write);
  if (code == store::kOk) code = store.VmxFlush(archive.handle());
  if (code != store::kOk) call.fail(failure(code));
}

void lock(Call& call) {
  const Named named = archiveOf(call);
  if (!named.entry || !keyFits(call, *named.entry)) return;
  store::RecordStore& store = call.driver.session().store;
  HeldLocks& held = call.driver.locks[named.stem];
  store::Code code = held.handle ? store::kOk : store.VmxOpen(named.stem, held.handle);
  if (code == store::kOk) code = store.VmxLock(held.handle, call.word(2));
  if (code == store::kOk)
    ++held.counts[call.word(2)];
  else
    call.fail(code == store::kNotFound ? "locked by another station" : failure(code));
  closeUnused(call, named.stem);
}

void unlock(Call& call) {
  const Named named = archiveOf(call);
  if (!named.entry) return;
  const auto held = call.driver.locks.find(named.stem);
  if (held == call.driver.locks.end() || !held->second.counts.contains(call.word(2)))
    return call.fail("not locked by this script: " + call.word(2));
  auto& counts = held->second.counts;
  call.driver.session().store.VmxUnlock(held->second.handle, call.word(2));
  if (--counts[call.word(2)] == 0) counts.erase(call.word(2));
  closeUnused(call, named.stem);
}

void verify(Call& call) {
  tarvex::Session& session = call.driver.session();
  if (session.CompanyCode.empty()) return call.fail("no company is open");
  Json violations = Json::array(), notices = Json::array();
  for (const auto& violation : tarvex::verify(session))
    (violation.notice ? notices : violations)
        .push_back({{"rule", violation.rule},
                    {"text", violation.text},
                    {"records", violation.records},
                    {"difference", violation.difference},
                    {"repair", violation.repair}});
  call.add("violations", std::move(violations));
  call.add("notices", std::move(notices));
}

}  // namespace driver::command
