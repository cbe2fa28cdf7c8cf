// The books of a small company: a counter, a journal of two rows for each posting, and two balances. Whatever
// happens to the stations that post, the counter tells how many postings there are, and all the rest must
// agree with it.
#pragma once

#include <optional>
#include <string>

#include "store/books.h"
#include "store/group.h"

namespace test {

class Postings {
 public:
  explicit Postings(const std::string& directory)
      : log_(directory + "/AB--"),
        store_(optionsOfTests()),
        pr_(store_, directory + "/2003ABpr"),
        mc_(store_, directory + "/2003ABmc"),
        pc_(store_, directory + "/2003ABpc") {}

  static bool create(const std::string& directory) {
    {
      store::RecordStore made{optionsOfTests()};
      for (const char* archive : {"/2003ABpr", "/2003ABmc", "/2003ABpc"})
        if (made.VmxCreate(directory + archive, 8, kFormat) != store::kOk) return false;
    }
    Postings books(directory);
    return books.pr_.put("co", record("", 0)) == store::kOk &&
           books.pc_.put("a", record("", 0)) == store::kOk && books.pc_.put("b", record("", 0)) == store::kOk;
  }

  bool isOpen() const { return pr_.handle != 0 && mc_.handle != 0 && pc_.handle != 0; }
  bool lockCounter() { return pr_.lock("co") == store::kOk; }

  // One posting, as one group: draws the number, adds the rows, moves the balances.
  bool post() {
    store::Group group(store_, log_, 8, 500);
    const std::optional<double> number = add(pr_, "co", 1);
    if (!number) return false;
    for (const char* row : {"1", "2"})
      if (mc_.put(keyOf(static_cast<long>(*number), row), record("x", *number), store::Put::add) !=
          store::kOk)
        return false;
    return add(pc_, "a", *number) && add(pc_, "b", -*number) && group.commit();
  }

  // How many postings there are, or what is wrong.
  std::string judge(long& count) {
    if (!isOpen() || pr_.search(0, "co") != store::kOk) return "the books do not open";
    count = static_cast<long>(amountOf(pr_.found.record));
    long rows = 0;
    for (mc_.bof(0); mc_.next(0) == store::kOk; ++rows)
      if (mc_.found.primaryKey != keyOf(rows / 2 + 1, rows % 2 == 0 ? "1" : "2"))
        return "row " + mc_.found.primaryKey + " behind " + std::to_string(rows) + " rows";
    if (rows != 2 * count) return std::to_string(count) + " postings with " + std::to_string(rows) + " rows";
    const long total = count * (count + 1) / 2;
    const auto sum = static_cast<double>(total);
    for (const auto& [key, balance] : {std::pair{"a", sum}, std::pair{"b", -sum}})
      if (pc_.search(0, key) != store::kOk || amountOf(pc_.found.record) != balance)
        return std::string("the balance ") + key + " is not that of the rows";
    return "";
  }

 private:
  static std::string keyOf(long number, const char* row) {
    const std::string digits = std::to_string(number);
    return std::string(7 - digits.size(), '0') + digits + row;
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

  const std::string log_;
  store::RecordStore store_;
  Opened pr_, mc_, pc_;
};

}  // namespace test
