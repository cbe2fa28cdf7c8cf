// Copies of archives while stations are at work on them.
#include <doctest/doctest.h>

#include <filesystem>

#include "store/books.h"
#include "store/group.h"

using namespace store;
using test::Opened;
using test::record;

namespace {

struct Company {
  test::Scratch directory;
  RecordStore store{test::optionsOfTests()}, second{test::optionsOfTests()};
  std::string mc = directory / "2003ABmc", pc = directory / "2003ABpc";
  std::string copyOfMc = directory / "2003ACmc", copyOfPc = directory / "2003ACpc";

  Company() {
    for (const std::string& stem : {mc, pc}) REQUIRE(store.VmxCreate(stem, 8, test::kFormat) == kOk);
  }
};

}  // namespace

TEST_CASE("a copy holds what groups and stations have written, and goes its own way from there") {
  Company company;
  Opened his(company.second, company.mc);
  REQUIRE(his.put("1", record("a", 1)) == kOk);
  {
    Opened mc(company.store, company.mc), pc(company.store, company.pc);
    Group group(company.store, company.directory / "AB--", 6, 1);
    mc.put("2", record("b", 2));
    pc.put("9", record("c", 3));
    REQUIRE(group.commit());
    const std::vector<ArchiveCopy> copies{{company.mc, company.copyOfMc}, {company.pc, company.copyOfPc}};
    CHECK(company.store.copyArchives(copies) == std::vector<Code>{kOk, kOk});
  }
  CHECK(std::filesystem::file_size(company.copyOfMc + ".ISF") == 0);
  REQUIRE(his.put("3", record("d", 4)) == kOk);
  Opened copy(company.second, company.copyOfMc);
  CHECK(copy.all(0) == "1 2 ");
  CHECK(copy.all(1) == "1 2 ");
  Group group(company.second, company.directory / "AC--", 6, 1);
  copy.put("7", record("e", 5));
  REQUIRE(group.commit());
  CHECK(copy.all(0) == "1 2 7 ");
  CHECK(his.all(0) == "1 2 3 ");
}

TEST_CASE("a copy over an archive, or of one that is not there, fails alone and leaves nothing") {
  Company company;
  REQUIRE(company.store.VmxCreate(company.copyOfMc, 8, test::kFormat) == kOk);
  {
    Opened standing(company.store, company.copyOfMc);
    standing.put("5", record("x", 1));
  }
  std::filesystem::remove(company.pc + ".ISF");
  const std::string third = company.directory / "2003ACiv";
  const std::vector<Code> results = company.store.copyArchives(
      {{company.mc, company.copyOfMc}, {company.pc, company.copyOfPc}, {company.mc, third}});
  CHECK(results == std::vector<Code>{kSystem, kSystem, kOk});
  CHECK(Opened(company.store, company.copyOfMc).all(0) == "5 ");
  CHECK_FALSE(std::filesystem::exists(company.copyOfPc + ".ISM"));
  CHECK(company.store.copyArchives({}).empty());
}
