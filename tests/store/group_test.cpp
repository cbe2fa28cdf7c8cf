#include "store/group.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "store/books.h"
#include "tools/child.h"

using namespace store;
using test::Opened;
using test::record;

namespace {

// Two archives of one company, one of another, one station more, and what was told to the user.
struct Companies {
  test::Scratch directory;
  std::vector<ArchiveFailure> told;
  RecordStore store{options()}, second{test::optionsOfTests()};
  std::string mc = directory / "2003ABmc", pc = directory / "2003ABpc", other = directory / "2003ACmc";
  std::string log = directory / "AB--";

  Companies() {
    for (const std::string& stem : {mc, pc, other}) REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
  }
  StoreOptions options() {
    StoreOptions made = test::optionsOfTests();
    made.onFailure = [this](const ArchiveFailure& failure) { told.push_back(failure); };
    return made;
  }
};

}  // namespace

TEST_CASE("a group is seen by its own station at once, by the others as a whole at the commit") {
  Companies books;
  Opened mc(books.store, books.mc), pc(books.store, books.pc), his(books.second, books.mc);
  for (const char* key : {"1", "3", "5"}) mc.put(key, record("b", 1));
  pc.put("x", record("a", 0));
  {
    Group group(books.store, books.log, 8, 120);
    CHECK(mc.put("2", record("a", 2), Put::add) == kOk);
    CHECK(mc.put("2", record("a", 2), Put::add) == kExists);
    CHECK(mc.put("1", record("b", 2), Put::add) == kExists);
    CHECK(mc.put("9", record("b", 2), Put::rewrite) == kNotFound);
    CHECK(mc.put("3", record("c", 3), Put::rewrite) == kOk);
    CHECK(mc.erase("5") == kOk);
    CHECK(mc.erase("5") == kNotFound);
    CHECK(mc.put("0", record("b", 0)) == kOk);
    CHECK(pc.put("x", record("z", 9)) == kOk);
    CHECK(mc.flush() == kOk);
    CHECK(mc.all(0) == "0 1 2 3 ");
    CHECK(mc.backwards(0) == "3 2 1 0 ");
    CHECK(mc.all(1) == "2 0 1 3 ");
    CHECK(mc.backwards(1) == "3 1 0 2 ");
    CHECK(mc.search(1, "b") == kOk);
    CHECK(mc.found.primaryKey == "0");
    CHECK(mc.search(0, "5") == kNotFound);
    CHECK(his.all(0) == "1 3 5 ");
    CHECK(group.commit());
    CHECK_FALSE(group.commit());
  }
  CHECK(his.all(1) == "2 0 1 3 ");
  CHECK(mc.all(1) == "2 0 1 3 ");
  CHECK(pc.search(1, "z") == kOk);
  CHECK(books.told.empty());
}

TEST_CASE("a group without commit leaves nothing, not even a lock") {
  Companies books;
  Opened mc(books.store, books.mc), his(books.second, books.mc);
  mc.put("1", record("a", 1));
  mc.lock("before");
  {
    Group group(books.store, books.log, 8, 120);
    mc.lock("inside");
    mc.put("2", record("a", 2));
    mc.erase("1");
    mc.unlock("before");
  }
  CHECK(mc.all(0) == "1 ");
  CHECK(his.lock("inside") == kOk);
  CHECK(his.lock("before") == kOk);
  Group(books.store, books.log, 8, 120).commit();
  CHECK(books.store.LastArchiveResult == kOk);
}

TEST_CASE("locks of a group are given back at its end, and a relock keeps them") {
  Companies books;
  Opened mc(books.store, books.mc), his(books.second, books.mc);
  std::optional<Group> group(std::in_place, books.store, books.log, 8, 120);
  CHECK(mc.lock("a") == kOk);
  CHECK(mc.lock("b") == kOk);
  CHECK(mc.unlock("a") == kOk);
  CHECK(mc.unlock("b") == kOk);
  CHECK(mc.lock("b") == kOk);
  CHECK(his.lock("a") == kNotFound);
  CHECK(group->commit());
  CHECK(his.lock("a") == kOk);
  CHECK(his.lock("b") == kNotFound);
  CHECK(mc.unlock("b") == kOk);
  CHECK(his.lock("b") == kOk);
}

TEST_CASE("an archive may be made, opened and closed inside a group") {
  Companies books;
  Opened mc(books.store, books.mc);
  {
    Group group(books.store, books.log, 8, 120);
    Handle handle = 0;
    const std::string ra = books.directory / "2003ABra";
    CHECK(books.store.VmxOpen(ra, handle) ==
          kSystem);  // made when it is first missed: no failure of the group
    CHECK(books.store.VmxCreate(ra, 8, "$") == kOk);
    {
      Opened made(books.store, ra);
      CHECK(made.put("1", std::string(1, '\0')) == kOk);
    }
    {
      Opened pc(books.store, books.pc);
      CHECK(pc.put("1", record("a", 1)) == kOk);
    }
    {
      Opened pc(books.store, books.pc);
      CHECK(pc.all(0) == "1 ");
    }
    CHECK(group.commit());
    {
      Opened made(books.second, ra);
      CHECK(made.all(0) == "1 ");
    }
  }
  CHECK(books.store.VmxKill(books.mc) == kSystem);  // still open
  Opened pc(books.second, books.pc);
  CHECK(pc.all(0) == "1 ");
}

TEST_CASE("a failure spoils the group: nothing is written, and it is told once at the end") {
  Companies books;
  Opened mc(books.store, books.mc);
  mc.put("1", record("a", 1));
  {
    Group group(books.store, books.log, 8, 120);
    mc.put("2", record("a", 2));
    mc.search(0, "none");
    books.store.CheckArchiveResult(Operation::read, 8, 5);
    mc.put("3", "no such record");
    books.store.CheckArchiveResult(Operation::write, 8, 6);
    mc.put("4", record("a", 4));
    books.store.CheckArchiveResult(Operation::write, 8, 7);
    CHECK(books.told.empty());
    CHECK_FALSE(group.commit());
    CHECK(books.store.LastArchiveResult == kDisk);
  }
  REQUIRE(books.told.size() == 1);
  CHECK(books.told[0].logLine ==
        "Errore:  14 Operazione: registrazione dati Archivio: mov. contabili Posizione:  120");
  CHECK(mc.all(0) == "1 ");
  {
    Group group(books.store, books.log, 8, 120);
    mc.put("2", record("a", 2));
    books.store.LastArchiveResult = kDiskFull;  // a failure that only the caller has seen
    books.store.CheckArchiveResult(Operation::write, 8, 7);
  }
  REQUIRE(books.told.size() == 2);  // without a commit, too
  CHECK(books.told[1].cause == "DISCO PIENO");
}

TEST_CASE("a record that is missing does not spoil the group, and is told behind it") {
  Companies books;
  Opened mc(books.store, books.mc);
  Group group(books.store, books.log, 8, 120);
  mc.put("2", record("a", 2));
  mc.search(0, "none");
  books.store.CheckArchiveResult(Operation::read, 4, 5);
  CHECK(books.told.empty());
  CHECK(group.commit());
  REQUIRE(books.told.size() == 1);
  CHECK(books.told[0].message ==
        "Errore:  1\rOperazione: lettura dati\rArchivio: progressivi\rPosizione:  5");
  CHECK(mc.all(0) == "2 ");
}

TEST_CASE("one company's group keeps neither the singles nor the groups of another from going on") {
  Companies books;
  Opened mc(books.store, books.mc), other(books.store, books.other), his(books.second, books.other);
  Group group(books.store, books.log, 8, 120);
  CHECK_THROWS_AS(Group(books.store, books.directory / "AC--", 8, 1), std::logic_error);
  CHECK(other.put("1", record("a", 1)) == kOk);  // no part of this group
  CHECK(his.all(0) == "1 ");
  Group hers(books.second, books.directory / "AC--", 8, 120);
  CHECK(his.put("2", record("a", 2)) == kOk);
  CHECK(hers.commit());
  CHECK(other.all(0) == "1 2 ");
}

TEST_CASE("a group whose log cannot be opened is refused") {
  Companies books;
  Opened mc(books.store, books.mc);
  Group group(books.store, books.directory / "none/AB--", 8, 120);
  CHECK_FALSE(group.commit());
  CHECK(books.store.LastArchiveResult == kSystem);
}

TEST_CASE("a group of another station, and what it is about to add, are waited for") {
  Companies books;
  Opened mc(books.store, books.mc);
  RecordStore his{test::optionsOfTests()};
  std::optional<Opened> taken;
  std::optional<Group> standing;
  test::HoldingChild child([&] {
    taken.emplace(his, books.mc);
    standing.emplace(his, books.log, 8, 120);
    return taken->put("7", record("his", 7), Put::add) == kOk;
  });
  REQUIRE(child.ready());
  const pid_t waiting = ::fork();
  if (waiting == 0) {
    RecordStore mine{test::optionsOfTests()};
    Opened archive(mine, books.mc);
    const Code added = archive.put("7", record("mine", 7), Put::add);  // his intent stands until he dies
    Group group(mine, books.log, 8, 120);
    archive.put("8", record("mine", 8));
    ::_exit(added == kOk && group.commit() ? 0 : 1);
  }
  ::usleep(100'000);
  CHECK(::waitpid(waiting, nullptr, WNOHANG) == 0);
  CHECK(mc.all(0).empty());
  child.kill();
  int status = -1;
  ::waitpid(waiting, &status, 0);
  CHECK(status == 0);
  CHECK(mc.all(0) == "7 8 ");
  CHECK(mc.search(1, "mine") == kOk);
}

TEST_CASE("a log that grows is settled, and emptied at the end") {
  Companies books;
  const auto bytes = [&] { return std::filesystem::file_size(books.log + ".grp"); };
  std::uintmax_t largest = 0, empty = 0;
  {
    RecordStore third{test::optionsOfTests()};
    Opened mc(third, books.mc);
    empty = bytes();
    for (int i = 0; i < 50; ++i) {
      Group group(third, books.log, 8, 120);
      mc.put(std::to_string(i), record("a", i, "", std::string(200'000, 'n')));
      REQUIRE(group.commit());
      largest = std::max(largest, bytes());
    }
    CHECK(largest > 4'000'000);
    CHECK(largest < 5'000'000);
    CHECK(bytes() > empty);
    CHECK(third.settle() == kOk);
    CHECK(bytes() == empty);
    Group group(third, books.log, 8, 120);
    mc.put("x", record("a", 1));
    REQUIRE(group.commit());
  }
  CHECK(bytes() == empty);
  Opened mc(books.second, books.mc);
  CHECK(mc.all(0).size() == 10 * 2 + 40 * 3 + 2);
}

TEST_CASE("an archive that was put back from a copy is told of and left as it is") {
  Companies books;
  const std::string copy = books.directory / "2003ABcopy";
  for (const char* extension : {".ISM", ".ISD", ".ISF"})
    std::filesystem::copy_file(books.mc + extension, copy + extension);
  {
    RecordStore earlier{test::optionsOfTests()};
    Opened mc(earlier, books.mc);
    Group group(earlier, books.log, 8, 120);
    mc.put("0", record("a", 1));
    REQUIRE(group.commit());
  }
  test::HoldingChild child([&] {
    auto* his = new RecordStore(test::optionsOfTests());  // dies with the process, before any settling
    auto* mc = new Opened(*his, books.mc);
    auto* pc = new Opened(*his, books.pc);
    for (int i = 1; i < 3; ++i) {
      Group group(*his, books.log, 8, 120);
      mc->put(std::to_string(i), record("a", 1));
      pc->put(std::to_string(i), record("a", 1));
      if (!group.commit()) return false;
    }
    return true;
  });
  REQUIRE(child.ready());
  child.kill();
  for (const char* extension : {".ISM", ".ISD", ".ISF"})
    std::filesystem::rename(copy + extension, books.mc + extension);
  std::filesystem::remove(books.mc + ".ISD-shm");
  Opened pc(books.store, books.pc), mc(books.store, books.mc);
  CHECK(pc.all(0) == "1 2 ");
  CHECK(mc.all(0).empty());
  REQUIRE(books.told.size() == 1);
  CHECK(books.told[0].logLine.find("Archivio: 2003ABmc") != std::string::npos);
  RecordStore next{test::optionsOfTests()};  // what was told is not told again
  Opened again(next, books.mc);
  CHECK(again.all(0).empty());
}
