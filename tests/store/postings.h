// The books of a small company, for the fault tests: postings numbered 1, 2, 3 ..., each a group over five
// archives. Whatever happens to the stations that post, the counter tells how many postings there are, and
// all the rest must agree with it.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "store/books.h"
#include "store/group.h"

namespace test {

class Postings {
 public:
  using OnFailure = std::function<void(const store::ArchiveFailure&)>;

  explicit Postings(const std::string& directory, bool share = onShare(), const OnFailure& onFailure = {})
      : log_(directory + "/AB--"),
        store_(options(share, onFailure)),
        pr_(store_, directory + "/2003ABpr"),
        pc_(store_, directory + "/2003ABpc"),
        mc_(store_, directory + "/2003ABmc"),
        iv_(store_, directory + "/2003ABiv"),
        sd_(store_, directory + "/2003ABsd") {
    for (const Opened* archive : {&pr_, &pc_, &mc_, &iv_, &sd_}) {
      store_.LastArchiveResult = archive->opened;
      store_.CheckArchiveResult(store::Operation::open, 8, 1);
    }
  }

  // Makes the archives in an empty directory.
  static bool create(const std::string& directory) {
    {
      store::RecordStore made{optionsOfTests()};
      for (const char* archive : {"/2003ABpr", "/2003ABpc", "/2003ABmc", "/2003ABiv", "/2003ABsd"})
        if (made.VmxCreate(directory + archive, 8, kFormat) != store::kOk) return false;
    }
    Postings books(directory);
    return books.pr_.put("mc", record("", 0)) == store::kOk &&
           books.pc_.put("a", record("", 0)) == store::kOk && books.pc_.put("b", record("", 0)) == store::kOk;
  }

  bool isOpen() const {
    const std::array all{pr_.handle, pc_.handle, mc_.handle, iv_.handle, sd_.handle};
    return std::all_of(all.begin(), all.end(), [](store::Handle handle) { return handle != 0; });
  }
  bool lockCounter() { return pr_.lock("mc") == store::kOk; }
  bool settle() { return store_.settle() == store::kOk; }

  // The last posting; below 0 when it cannot be read.
  long number() {
    const bool read = pr_.search(0, "mc") == store::kOk;
    store_.CheckArchiveResult(store::Operation::read, 4, 2);
    return read ? static_cast<long>(amountOf(pr_.found.record)) : -1;
  }

  // One posting: draws the number, adds a row on each side and a VAT row, exchanges the due date of the
  // posting before for its own, moves both balances. False: refused.
  bool post() {
    store::Group group(store_, log_, 8, 500);
    const std::optional<double> number = add(pr_, "mc", 1);
    if (!number) return false;
    const std::string key = keyOf(static_cast<long>(*number)), before = keyOf(static_cast<long>(*number) - 1);
    const bool added = mc_.put(key + "a", record("a", *number, key), store::Put::add) == store::kOk &&
                       mc_.put(key + "b", record("b", -*number, key), store::Put::add) == store::kOk &&
                       iv_.put(key, record("a", *number, key), store::Put::add) == store::kOk &&
                       sd_.put(key, record("a", *number, key), store::Put::add) == store::kOk;
    return added && (*number == 1 || sd_.erase(before) == store::kOk) && add(pc_, "a", *number) &&
           add(pc_, "b", -*number) && group.commit();
  }

  // How many postings there are, or what is wrong. What cannot be read is reported, too.
  std::string judge(long& count) {
    count = number();
    if (!isOpen() || count < 0) return "the books do not open";
    const auto total = static_cast<double>(count * (count + 1) / 2);
    if (balance("a") != total || balance("b") != -total) return "a balance is not that of the rows";
    const auto last = static_cast<double>(count);
    for (const int index : {0, 1, 3}) {
      if (rows(mc_, index) != 2 * count || sum_ != 0) return "rows of a posting are missing, or too many";
      if (rows(iv_, index) != count || sum_ != total) return "a VAT row is missing, or too many";
      if (rows(sd_, index) != std::min(count, 1L) || sum_ != last) return "the due date is not the last one";
    }
    return "";
  }

 private:
  static store::StoreOptions options(bool share, const OnFailure& onFailure) {
    store::StoreOptions made = optionsOfTests();
    made.share = share;
    made.onFailure = onFailure;
    return made;
  }

  static std::string keyOf(long number) {
    const std::string digits = std::to_string(number);
    return std::string(7 - digits.size(), '0') + digits;
  }

  // Adds to the amount of one record under its lock, and returns the new one.
  std::optional<double> add(Opened& archive, std::string_view key, double amount) {
    store_.spinLock(archive.handle, key);
    if (archive.search(0, key) != store::kOk) return std::nullopt;
    amount += amountOf(archive.found.record);
    if (archive.put(key, record("", amount), store::Put::rewrite) != store::kOk) return std::nullopt;
    archive.unlock(key);
    return amount;
  }

  double balance(std::string_view key) {
    const bool read = pc_.search(0, key) == store::kOk;
    store_.CheckArchiveResult(store::Operation::read, 1, 3);
    return read ? amountOf(pc_.found.record) : 0.5;  // no sum of whole numbers
  }

  long rows(Opened& archive, int index) {
    long count = 0;
    sum_ = 0;
    for (archive.bof(index); archive.next(index) == store::kOk; ++count)
      sum_ += amountOf(archive.found.record);
    if (store_.LastArchiveResult == store::kNotFound) return count;
    store_.CheckArchiveResult(store::Operation::read, 8, 4);
    return -1;
  }

  const std::string log_;
  store::RecordStore store_;
  Opened pr_, pc_, mc_, iv_, sd_;
  double sum_ = 0;  // of the amounts that rows() met
};

}  // namespace test
