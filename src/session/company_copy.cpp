#include "session/company_copy.h"

#include <array>
#include <vector>

#include "archives/catalogue.h"
#include "archives/fields.h"
#include "session/new_company.h"
#include "store/group.h"

namespace tarvex {
namespace {

using store::Operation;

// Opening, loads, unloads, returns, orders and stock of an article, with their values; places in the record.
constexpr std::array<std::size_t, 16> kProgressive{9,  10, 11, 12, 13, 14, 15, 16,
                                                   17, 18, 19, 20, 21, 27, 28, 40};

// An archive as packed records, for those that are copied whole.
class RawArchive {
 public:
  RawArchive(Session& session, const archives::Entry& entry, const std::string& stem, int position)
      : session_(session), entry_(entry) {
    session_.store.VmxOpen(stem, handle_);
    session_.CheckArchiveResult(Operation::open, entry_.code, position);
  }
  ~RawArchive() {
    if (handle_) session_.store.VmxClose(handle_);
  }
  RawArchive(const RawArchive&) = delete;
  RawArchive& operator=(const RawArchive&) = delete;

  bool isOpen() const { return handle_ != 0; }
  store::Handle handle() const { return handle_; }

 private:
  Session& session_;
  const archives::Entry& entry_;
  store::Handle handle_ = 0;
};

class Copying {
 public:
  Copying(Session& session, std::string_view code, std::string_view year)
      : session_(session), code_(code), year_(year) {}

  CopyResult run(const CopyWish& wish);

 private:
  CopyResult copy(const CopyWish& wish);
  bool isFresh();
  bool copyVoices(const CopyWish& wish);
  bool copyArchive(std::string_view prefix, bool clearProgressive);
  bool copyCounter(std::string_view key);
  bool sound(Operation operation, int archive, int position) {
    session_.CheckArchiveResult(operation, archive, position);
    return session_.store.LastArchiveResult < store::kDiskFull;
  }
  std::string target(std::string_view prefix) const { return session_.stem(prefix, year_, code_); }

  Session& session_;
  const std::string code_, year_;
  archives::Archive<rec::pr> pr_{session_.store};
};

bool wants(const CopyWish& wish, std::string_view tipo) {
  if (tipo == "c") return wish.customers;
  if (tipo == "f") return wish.suppliers;
  if (tipo == "ag") return wish.agents;
  return wish.chart && (tipo == "cc" || tipo == "m" || tipo == "s");
}

CopyResult Copying::run(const CopyWish& wish) {
  {
    archives::Archive<rec::ct> ct(session_.store);
    if (ct.open(target("ct")) != store::kOk) return CopyResult::notThere;
  }
  if (code_ == session_.CompanyCode && year_ == session_.WorkYear) return CopyResult::refused;
  pr_.open(target("pr"));
  session_.CheckArchiveResult(Operation::open, pr_.code, 170);
  if (!pr_.isOpen()) return CopyResult::failed;
  store::Group group(session_.store, session_.DataDirectory + code_ + "--", pr_.code, 171);
  const CopyResult result = copy(wish);
  if (result != CopyResult::refused && !group.commit()) return CopyResult::failed;
  return result;
}

// Numbers drawn there would meet those that are copied. Looked at under the lock that draws them.
bool Copying::isFresh() {
  pr_.spinLock("conto");
  pr_.search(0, "conto");
  const bool fresh = sound(Operation::read, pr_.code, 172) && pr_.B.valore <= kFirstCounter;
  pr_.unlock("conto");  // put off to the end of the group
  return fresh;
}

CopyResult Copying::copy(const CopyWish& wish) {
  if (wish.anyVoices() && !isFresh()) return CopyResult::refused;
  const bool voices = !wish.anyVoices() || (copyVoices(wish) && copyCounter("conto"));
  const bool articles = !wish.articles || (copyArchive("ma", true) && copyCounter("magaz"));
  const bool bills = !wish.billsOfMaterials || (copyArchive("pf", false) && copyArchive("cp", false));
  return voices && articles && bills ? CopyResult::done : CopyResult::failed;
}

bool Copying::copyVoices(const CopyWish& wish) {
  archives::Archive<rec::pc> pc(session_.store);
  pc.open(target("pc"));
  if (!sound(Operation::open, pc.code, 173)) return false;
  archives::Archive<rec::pc>& own = session_.pc;
  own.bof(0);
  while (own.next(0) == store::kOk) {
    if (!wants(wish, own.B.tipo)) continue;
    pc.A = own.B;
    if (pc.put(own.primaryKey(), store::Put::add) == store::kExists) continue;
    if (!sound(Operation::write, pc.code, 174)) return false;
  }
  return session_.store.LastArchiveResult == store::kNotFound || sound(Operation::read, pc.code, 175);
}

bool Copying::copyArchive(std::string_view prefix, bool clearProgressive) {
  const archives::Entry& entry = *archives::find(prefix);
  const RawArchive from(session_, entry, session_.stem(prefix), 176),
      to(session_, entry, target(prefix), 177);
  if (!from.isOpen() || !to.isOpen()) return false;
  store::RecordStore& store = session_.store;
  store::Found found;
  store.VmxBOF(from.handle(), 0);
  while (store.VmxGet(from.handle(), 0, store::Get::next, {}, found) == store::kOk) {
    if (clearProgressive) {
      std::vector<archives::NamedField> fields = archives::fieldsOf(entry, found.record);
      for (const std::size_t place : kProgressive) fields[place].value = 0.0;
      found.record = archives::packedOf(entry, fields);
    }
    if (store.VmxPut(to.handle(), found.primaryKey, found.record, store::Put::add) == store::kExists)
      continue;
    if (!sound(Operation::write, entry.code, 178)) return false;
  }
  return store.LastArchiveResult == store::kNotFound || sound(Operation::read, entry.code, 179);
}

bool Copying::copyCounter(std::string_view key) {
  session_.pr.search(0, key);
  if (!sound(Operation::read, pr_.code, 180)) return false;
  pr_.spinLock(key);
  pr_.search(0, key);
  if (!sound(Operation::read, pr_.code, 181)) return false;
  pr_.A = pr_.B;
  pr_.A.valore = session_.pr.B.valore;
  pr_.put(key, store::Put::write);
  const bool written = sound(Operation::write, pr_.code, 182);
  pr_.unlock(key);  // put off to the end of the group
  return written;
}

}  // namespace

CopyResult copyMasterData(Session& session, std::string_view code, std::string_view year,
                          const CopyWish& wish) {
  return Copying(session, code, year).run(wish);
}

}  // namespace tarvex
