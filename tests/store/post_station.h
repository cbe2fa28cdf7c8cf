// A station of the fault tests: posts entries that are numbered 1, 2, 3 ..., each a group over five archives,
// and judges whether books hold whole entries and nothing else.
#pragma once

#include <algorithm>
#include <string>

#include "store/books.h"
#include "store/group.h"

namespace test {

class PostStation {
 public:
  explicit PostStation(const std::string& directory)
      : directory_(directory),
        store_(options()),
        pr_(store_, stem("pr")),
        pc_(store_, stem("pc")),
        mc_(store_, stem("mc")),
        iv_(store_, stem("iv")),
        sd_(store_, stem("sd")) {}

  // Makes the archives in an empty directory.
  static void make(const std::string& directory) {
    store::RecordStore store(options());
    for (const char* prefix : {"pr", "pc", "mc", "iv", "sd"})
      store.VmxCreate(directory + "/2003AB" + prefix, 8, kFormat);
    Opened pr(store, directory + "/2003ABpr"), pc(store, directory + "/2003ABpc");
    pr.put("mc", record("", 0));
    for (const char* account : {"00011", "00012"}) pc.put(account, record(account, 0));
  }

  bool opened() const {
    const auto all = {pr_.handle, pc_.handle, mc_.handle, iv_.handle, sd_.handle};
    return std::all_of(all.begin(), all.end(), [](store::Handle handle) { return handle != 0; });
  }

  // The last entry posted; below 0 when it cannot be read.
  int number() {
    return pr_.search(0, "mc") == store::kOk ? static_cast<int>(amountOf(pr_.found.record)) : -1;
  }

  // Posts the next entry: draws its number, adds a row on each side and a VAT row, brings both balances up to
  // date, and exchanges the due date of the entry before for its own. False: refused.
  bool post() {
    store::Group group(store_, directory_ + "/AB--", 8, 120);
    store_.spinLock(pr_.handle, "mc");
    const int entry = number() + 1;
    bool right = entry > 0 && pr_.put("mc", record("", entry)) == store::kOk;
    pr_.unlock("mc");
    const std::string key = std::to_string(1000 + entry), before = std::to_string(1000 + entry - 1);
    right = right && mc_.put(key + "d", record("00011", entry, key), store::Put::add) == store::kOk;
    right = right && mc_.put(key + "a", record("00012", -entry, key), store::Put::add) == store::kOk;
    right = right && iv_.put(key, record("00011", entry, key), store::Put::add) == store::kOk;
    right = right && sd_.put(key, record("00011", entry, key), store::Put::add) == store::kOk;
    if (entry > 1) right = right && sd_.erase(before) == store::kOk;
    for (const char* account : {"00011", "00012"}) {
      store_.spinLock(pc_.handle, account);
      right = right && pc_.search(0, account) == store::kOk;
      const double sign = account == std::string_view("00011") ? 1 : -1;
      right = right && pc_.put(account, record(account, amountOf(pc_.found.record) + sign * entry),
                               store::Put::rewrite) == store::kOk;
      pc_.unlock(account);
    }
    return right ? group.commit() : false;
  }

  bool settle() { return store_.settle() == store::kOk; }

  // What is wrong with the books; empty when they hold entries 1 to number(), whole.
  std::string judge() {
    if (!opened()) return "not opened";
    const int last = number();
    if (last < 0) return "no counter";
    const double total = last * (last + 1) / 2.0;
    if (balance("00011") != total || balance("00012") != -total) return "a balance is wrong";
    for (const int index : {0, 1, 3}) {
      if (count(mc_, index) != 2 * last) return "rows of an entry are missing, or too many";
      if (sum_ != 0) return "the rows do not balance";
      if (count(iv_, index) != last || sum_ != total) return "a VAT row is wrong";
      if (count(sd_, index) != std::min(last, 1) || sum_ != last) return "the due date is wrong";
    }
    return "";
  }

 private:
  static store::StoreOptions options() { return optionsOfTests(); }
  std::string stem(const std::string& prefix) const { return directory_ + "/2003AB" + prefix; }

  double balance(std::string_view account) {
    return pc_.search(0, account) == store::kOk ? amountOf(pc_.found.record) : -0.5;
  }
  int count(Opened& archive, int index) {
    int rows = 0;
    sum_ = 0;
    for (archive.bof(index); archive.next(index) == store::kOk; ++rows)
      sum_ += amountOf(archive.found.record);
    return store_.LastArchiveResult == store::kNotFound ? rows : -1;
  }

  std::string directory_;
  store::RecordStore store_;
  Opened pr_, pc_, mc_, iv_, sd_;
  double sum_ = 0;
};

}  // namespace test
