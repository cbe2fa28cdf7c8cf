#include "store/group_log.h"

#include <doctest/doctest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "store/group_log_bytes.h"
#include "tools/child.h"
#include "tools/scratch.h"

using store::GroupLog;
using store::kOk;
using store::LogMark;
using store::LogRecord;
using store::LogSlot;

namespace {

const std::function<void()> kNobody;
store::LockWait noHook() { return store::LockWait(kNobody); }

// Opens as a station does that has nothing to recover.
bool start(GroupLog& log) {
  bool alone = false;
  if (log.open(noHook(), alone) != kOk) return false;
  if (alone) log.unlockLog();
  return true;
}

LogRecord group(const std::string& text) {
  const store::LogOperation write{false, "00001", text};
  const store::LogOperation erase{true, std::string("a\0b", 3), ""};
  return {{}, {{"2003ABmc", "uuid-1", {7, 8}, {write, erase}}, {"2003ABpc", "uuid-2", {}, {write}}}};
}

LogMark commit(GroupLog& log, const std::string& text) {
  LogRecord record = group(text);
  REQUIRE(log.append(record) == kOk);
  REQUIRE(log.markApplied() == kOk);
  return record.mark;
}

// The text of each record, in order.
std::string textsOf(GroupLog& log, bool all) {
  std::vector<LogRecord> records;
  REQUIRE(log.records(all, records) == kOk);
  std::string texts;
  for (const LogRecord& record : records) texts += record.entries.at(0).operations.at(0).record;
  return texts;
}

bool pending(GroupLog& log) {
  bool yes = false;
  REQUIRE(log.pending(yes) == kOk);
  return yes;
}

// The file as a hand that damages it sees it.
struct Bytes {
  std::string path;

  std::string read() const {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void write(std::size_t offset, const std::string& bytes) const {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(offset)).write(bytes.data(), std::ssize(bytes));
  }
  void flip(std::size_t offset) const {
    write(offset, std::string(1, static_cast<char>(~read().at(offset))));
  }

  std::size_t newerSlot(LogSlot& slot) const {
    const std::string bytes = read();
    std::array<LogSlot, 2> slots;
    for (std::size_t n = 0; n < 2; ++n) decodeLogSlot(bytes.substr(store::kLogSlots[n]), slots[n]);
    const std::size_t newer = slots[1].mark.seq > slots[0].mark.seq ? 1 : 0;
    slot = slots[newer];
    return store::kLogSlots[newer];
  }
  // Puts a record behind the tail and lets the slot reach over it, each with a right crc.
  void forge(const LogMark& mark) const {
    LogSlot slot;
    const std::size_t at = newerSlot(slot);
    const std::string record = encodeLogRecord(mark, group("forged").entries);
    write(slot.tail, record);
    slot.last = slot.tail;
    slot.tail += record.size();
    write(at, encodeLogSlot(slot));
  }
};

}  // namespace

TEST_CASE("the first station is alone and holds LOG until it has recovered, the next one waits for it") {
  const test::Scratch scratch;
  const std::string path = scratch / "AB--.grp";
  GroupLog first(path), second(path);
  bool alone = false;
  REQUIRE(first.open(noHook(), alone) == kOk);
  CHECK(alone);
  const auto permissions = std::filesystem::status(path).permissions();
  CHECK(permissions == (std::filesystem::perms::owner_read | std::filesystem::perms::owner_write));

  int calls = 0;
  const std::function<void()> recovered = [&] {
    if (++calls == 1) first.unlockLog();
  };
  REQUIRE(second.open(store::LockWait(recovered), alone) == kOk);
  CHECK_FALSE(alone);
  CHECK(calls == 1);
  CHECK(first.lockLog(noHook()) == kOk);  // the second has not kept it

  SUBCASE("one whose recovery fails lets the next one be alone") {
    second.close();
    first.close();
    REQUIRE(second.open(noHook(), alone) == kOk);
    CHECK(alone);
  }
  SUBCASE("the last to go leaves nobody") {
    first.close();
    GroupLog third(path);
    REQUIRE(third.open(noHook(), alone) == kOk);
    CHECK_FALSE(alone);
  }
}

TEST_CASE("a log cannot be opened where there is no directory, and is closed then") {
  const test::Scratch scratch;
  GroupLog log(scratch / "none/AB--.grp");
  bool alone = false;
  CHECK(log.open(noHook(), alone) == store::kSystem);
  CHECK_FALSE(log.isOpen());
  CHECK(log.pending(alone) == store::kDisk);
}

TEST_CASE("a group comes back as it was written, to every station, until it is applied") {
  const test::Scratch scratch;
  GroupLog first(scratch / "--.grp"), second(scratch / "--.grp");
  REQUIRE(start(first));
  REQUIRE(start(second));
  CHECK_FALSE(pending(second));
  commit(first, "a");
  CHECK_FALSE(pending(second));

  LogRecord written = group(std::string("b\0\xFF", 3));
  REQUIRE(first.append(written) == kOk);
  CHECK(pending(second));
  std::vector<LogRecord> records;
  REQUIRE(second.records(false, records) == kOk);
  REQUIRE(records.size() == 1);
  CHECK(records[0].mark == written.mark);
  REQUIRE(records[0].entries.size() == 2);
  CHECK(records[0].entries[1].archive == "2003ABpc");
  const store::LogEntry& entry = records[0].entries[0];
  CHECK(entry.archive == "2003ABmc");
  CHECK(entry.uuid == "uuid-1");
  CHECK(entry.previous == LogMark{7, 8});
  REQUIRE(entry.operations.size() == 2);
  CHECK(entry.operations[0].record == std::string("b\0\xFF", 3));
  CHECK(entry.operations[1].erase);
  CHECK(entry.operations[1].key == std::string("a\0b", 3));

  REQUIRE(second.markApplied() == kOk);
  CHECK_FALSE(pending(first));
  CHECK(textsOf(first, false).empty());
  CHECK(textsOf(first, true) == std::string("ab\0\xFF", 4));
  CHECK(first.bytes() == std::filesystem::file_size(scratch / "--.grp"));
}

TEST_CASE("a reset begins a new log that knows nothing of the old one") {
  const test::Scratch scratch;
  GroupLog log(scratch / "--.grp");
  REQUIRE(start(log));
  const LogMark before = commit(log, "a");
  REQUIRE(log.reset() == kOk);
  CHECK_FALSE(pending(log));
  CHECK(log.bytes() == store::kLogRecords);
  CHECK(std::filesystem::file_size(scratch / "--.grp") == store::kLogRecords);
  CHECK(textsOf(log, true).empty());
  CHECK(commit(log, "b").log != before.log);
  CHECK(textsOf(log, true) == "b");
}

TEST_CASE("a commit that was cut short is no group, and the next one is found behind it") {
  const test::Scratch scratch;
  const Bytes bytes{scratch / "--.grp"};
  GroupLog log(bytes.path);
  REQUIRE(start(log));
  commit(log, "a");
  LogRecord cut = group("b");
  REQUIRE(log.append(cut) == kOk);

  SUBCASE("its record is torn") {
    bytes.flip(log.bytes() - 1);
    CHECK(textsOf(log, true) == "a");
  }
  SUBCASE("its record has not reached the disk") {
    std::filesystem::resize_file(bytes.path, log.bytes() - 20);
    CHECK(textsOf(log, true) == "a");
  }
  SUBCASE("its slot is torn") {
    LogSlot slot;
    bytes.flip(bytes.newerSlot(slot) + 20);
    CHECK(textsOf(log, false).empty());
    CHECK(textsOf(log, true) == "a");
  }
  CHECK_FALSE(log.damaged());
  REQUIRE(log.markApplied() == kOk);
  CHECK(commit(log, "c").seq > cut.mark.seq);  // an archive may remember the one that was cut
  CHECK(textsOf(log, true) == "ac");
  CHECK_FALSE(log.damaged());
}

TEST_CASE("a record of another log, or with a seq that was not committed, is none") {
  const test::Scratch scratch;
  const Bytes bytes{scratch / "--.grp"};
  GroupLog log(bytes.path);
  REQUIRE(start(log));
  commit(log, "a");
  const LogMark mark = commit(log, "b");

  SUBCASE("its own log and seq: what the others are measured by") {
    LogSlot slot;
    slot.mark = mark;
    slot.mark.seq += 1;
    slot.last = slot.tail = log.bytes();
    bytes.write(store::kLogSlots[0], encodeLogSlot(slot));
    bytes.write(store::kLogSlots[1], encodeLogSlot(slot));
    bytes.forge(slot.mark);
    CHECK(textsOf(log, true) == "abforged");
  }
  SUBCASE("another log") {
    bytes.forge({mark.log + 1, mark.seq});
    CHECK(textsOf(log, true) == "ab");
  }
  SUBCASE("a seq above the tail's") {
    bytes.forge({mark.log, mark.seq + 1});
    CHECK(textsOf(log, true) == "ab");
  }
  SUBCASE("a seq that was there before") {
    bytes.forge(mark);
    CHECK(textsOf(log, true) == "ab");
  }
  SUBCASE("right, but behind the tail") {
    bytes.write(log.bytes(), encodeLogRecord({mark.log, mark.seq}, group("x").entries));
    CHECK(textsOf(log, true) == "ab");
  }
}

TEST_CASE("damage to a committed group is told, and takes no group along that a station has yet to apply") {
  const test::Scratch scratch;
  const Bytes bytes{scratch / "--.grp"};
  GroupLog log(bytes.path);
  REQUIRE(start(log));
  commit(log, "a");
  const std::uint64_t second = log.bytes();
  commit(log, "b");

  SUBCASE("in the middle") {
    LogRecord record = group("c");
    REQUIRE(log.append(record) == kOk);
    bytes.flip(second + 50);
    CHECK(textsOf(log, false) == "c");
    CHECK(log.damaged());
    CHECK(textsOf(log, true) == "ac");
    REQUIRE(log.reset() == kOk);
    CHECK_FALSE(log.damaged());
  }
  SUBCASE("of the last one, which had been applied") {
    std::filesystem::resize_file(bytes.path, second + 5);
    CHECK(textsOf(log, true) == "a");
    CHECK(log.damaged());
  }
  SUBCASE("of the slot of one that had been applied") {
    LogSlot slot;
    bytes.flip(bytes.newerSlot(slot));
    CHECK(textsOf(log, true) == "a");
    CHECK(log.damaged());
    CHECK(commit(log, "c").seq > slot.mark.seq);
  }
  SUBCASE("of the whole head: the records tell what there was") {
    bytes.write(0, std::string(store::kLogRecords, '\0'));
    bool yes = false;
    CHECK(log.pending(yes) == store::kDisk);
    REQUIRE(start(log));
    CHECK(log.damaged());
    CHECK(textsOf(log, true) == "ab");
    commit(log, "c");
    CHECK(textsOf(log, true) == "abc");
  }
}

TEST_CASE("a file without a head is made anew, whatever it holds") {
  const test::Scratch scratch;
  const Bytes bytes{scratch / "--.grp"};
  GroupLog log(bytes.path);
  for (const std::size_t size : {0, 1, 40, 5000, 12288, 20000}) {
    CAPTURE(size);
    std::ofstream(bytes.path, std::ios::binary) << std::string(size, 'x');
    REQUIRE(start(log));
    CHECK(textsOf(log, true).empty());
    commit(log, "a");
    CHECK(textsOf(log, true) == "a");
    CHECK_FALSE(pending(log));
  }
}

TEST_CASE("a log that is removed or replaced under a station is noticed at the next lock") {
  const test::Scratch scratch;
  const std::string path = scratch / "--.grp";
  GroupLog first(path), second(path);
  REQUIRE(start(first));
  std::filesystem::remove(path);
  CHECK(first.lockGroup(noHook()) == store::kSystem);
  bool alone = false;
  REQUIRE(second.open(noHook(), alone) == kOk);
  CHECK(alone);
  second.unlockLog();
  CHECK(first.lockLog(noHook()) == store::kSystem);
  REQUIRE(first.open(noHook(), alone) == kOk);
  CHECK_FALSE(alone);
  CHECK(first.lockLog(noHook()) == kOk);
}

TEST_CASE("a station that is killed inside a group stops no other") {
  const test::Scratch scratch;
  GroupLog log(scratch / "--.grp"), his(scratch / "--.grp");
  REQUIRE(start(log));
  test::HoldingChild child([&] {
    LogRecord record = group("his");
    return start(his) && his.lockGroup(noHook()) == kOk && his.lockLog(noHook()) == kOk &&
           his.append(record) == kOk;
  });
  REQUIRE(child.ready());
  int calls = 0;
  const std::function<void()> killIt = [&] {
    if (++calls == 1) child.kill();
  };
  REQUIRE(log.lockGroup(store::LockWait(killIt)) == kOk);
  CHECK(calls == 1);
  REQUIRE(log.lockLog(noHook()) == kOk);
  CHECK(pending(log));
  CHECK(textsOf(log, false) == "his");
}
