#include <doctest/doctest.h>

#include <functional>
#include <istream>
#include <set>
#include <sstream>

#include "driver/play.h"
#include "tools/scratch.h"

using nlohmann::json;

namespace {

// The first company, made as a user would, has the code AD.
constexpr std::string_view kNewCompany =
    "start\nopen APRIAZ\nset text1 \"PROVA S.R.L.\"\nset text5 2003\npress ok\n";

// A directory with that company, made once and copied for each test.
void fill(const test::Scratch& scratch) {
  static const test::Scratch made;
  static const auto answers = test::play(made.path(), std::string(kNewCompany) + "quit\n");
  REQUIRE(answers.size() == 6);
  std::filesystem::copy(made.path(), scratch.path());
}

constexpr std::string_view kChoose = "start\npick Combo1 \"PROVA S.R.L.\"\npick Combo2 2003\npress ok\n";

std::vector<json> onCompany(const test::Scratch& scratch, const std::string& script) {
  auto answers = test::play(scratch.path(), std::string(kChoose) + script);
  answers.erase(answers.begin(), answers.begin() + 4);
  return answers;
}

// The answers to commands on a new company.
std::vector<json> onCompany(const std::string& script) {
  const test::Scratch scratch;
  fill(scratch);
  return onCompany(scratch, script);
}

std::string journalRow(const std::string& key, const std::string& fields) {
  return "put mc " + key +
         " {\"nummov\":\"1\",\"datareg\":\"20030115\",\"numdoc\":\"000125\",\"causale\":\"fv\"," +
         "\"registro\":\"1\"," + fields + "}\n";
}

// An invoice of 100 and 20 of VAT, posted on all levels.
std::string invoice() {
  return journalRow("00000001", R"("conto":"00051","dare":120)") +
         journalRow("00000002", R"("conto":"00016","avere":100)") +
         journalRow("00000003", R"("conto":"00012","avere":20)") +
         R"(put pc 00051 {"ragsoc":"ROSSI","tipo":"c","mastro":"00001","conto":"00005","dare":120,"saldo":120}
put pc 00001 {"dare":120,"saldo":120}
put pc 00005 {"dare":120,"saldo":120}
put pc 00016 {"avere":100,"saldo":-100}
put pc 00003 {"avere":100,"saldo":-100}
put pc 00009 {"avere":100,"saldo":-100}
put pc 00012 {"avere":20,"saldo":-20}
put pc 00002 {"avere":20,"saldo":-20}
put pc 00008 {"avere":20,"saldo":-20}
put iv " 1" {"numero":"00125","registro":"1","datareg":"15/01/2003","imponibile":100,"imposta":15}
put iv " 2" {"numero":"00125","registro":"1","datareg":"15/01/2003","imposta":5}
)";
}

json violations(const std::string& script) {
  return onCompany(invoice() + script + "verify\n").back()["violations"];
}

}  // namespace

TEST_CASE("records are shown and put by the names of their fields") {
  const auto a = onCompany(
      "session\ndump pc 00012\ndump 2003ADpc 00012\ndump pc 99999\ndump pc 000123\nput pc 00012 "
      "{\"dare\":1.5}\n"
      "dump pc 00012\nput pc 00077 {\"key\":\"00077\",\"ragsoc\":\"È \\\"n\\\"\",\"destcitta\":[\"a\",\"b\"],"
      "\"listino\":-3}\ndump pc 00077\nput pc 00077 {\"destcitta\":[\"c\"]}\ndump pc 00077\ndump civa\n");
  CHECK(a[0]["session"]["CompanyCode"] == "AD");
  CHECK(a[0]["session"]["WorkYear"] == "2003");
  CHECK(a[0]["session"]["MonthNames"].size() == 12);
  CHECK(a[0]["session"]["TodayText"] == "15/04/2003");
  REQUIRE(a[1]["records"].size() == 1);
  CHECK(a[1]["records"][0]["key"] == "00012");
  CHECK(a[1]["records"][0]["ragsoc"] == "Iva vendite");
  CHECK(a[1]["records"][0]["dare"] == 0);
  CHECK(a[1]["records"][0]["destcitta"].size() == 31);
  CHECK(a[2]["records"] == a[1]["records"]);
  CHECK(a[3]["records"] == json::array());
  CHECK(a[4]["records"] == json::array());  // a longer key is another one
  CHECK(a[6]["records"][0]["dare"] == 1.5);
  CHECK(a[6]["records"][0]["ragsoc"] == "Iva vendite");
  CHECK(a[8]["records"][0]["ragsoc"] == "È \"n\"");
  CHECK(a[8]["records"][0]["listino"] == -3);
  CHECK(a[10]["records"][0]["destcitta"][0] == "c");
  CHECK(a[10]["records"][0]["destcitta"][1] == "");
  CHECK(a[11]["records"].size() == 25);
  CHECK(a[11]["records"][0]["key"] == "0");
}

TEST_CASE("what is no record is refused, and nothing is written") {
  const auto a = onCompany(
      "put pc 00012 {\"key\":\"00013\",\"dare\":5}\nput pc 00012 {\"nonsense\":1}\nput pc 00012 "
      "{\"dare\":\"x\"}\nput pc 00012 {\"ragsoc\":1}\n"
      "put pc 00012 {\"listino\":40000}\nput pc 00012 {\"listino\":1.5}\nput pc 00012 {\"destcitta\":\"x\"}\n"
      "put pc 00012 {\"dare\":1e999}\nput pc 00012 {\"dare\":null}\nput pc 00012 {\"dare\":7} x\nput pc "
      "00012 7\n"
      "put pc 00012\nput pc 000012 {}\nput pc \"\" {}\nput 2002ADpc 00012 {}\nput nonsense 1 {}\ndump "
      "2003XYpc\n"
      "lock nonsense 1\nunlock pc 00012\ndump pc 00012\ndump pc\n");
  for (std::size_t i = 0; i < 19; ++i) CHECK_MESSAGE(a[i]["ok"] == false, i);
  CHECK(a[19]["records"][0]["dare"] == 0);
  CHECK(a[20]["records"].size() == 22);
}

TEST_CASE("locks are taken, counted and given back") {
  const auto a = onCompany(
      "lock pc 00012\nlock pc 00012\nunlock pc 00012\nunlock pc 00012\nunlock pc 00012\n"
      "lock pr mc\nlock pr conto\n");
  for (const int granted : {0, 1, 2, 3, 5, 6}) CHECK(a[static_cast<std::size_t>(granted)]["ok"] == true);
  CHECK(a[4]["ok"] == false);
}

TEST_CASE("a lock of another station is refused until it goes") {
  const test::Scratch scratch;
  fill(scratch);
  // The second station runs while the first one waits for its next line.
  struct Script : std::streambuf {
    explicit Script(std::vector<std::function<std::string()>> steps) : steps_(std::move(steps)) {}
    int underflow() override {
      if (next_ == steps_.size()) return traits_type::eof();
      text_ = steps_[next_++]();
      setg(text_.data(), text_.data(), text_.data() + text_.size());
      return traits_type::to_int_type(text_[0]);
    }
    std::vector<std::function<std::string()>> steps_;
    std::size_t next_ = 0;
    std::string text_;
  };
  std::vector<json> other;
  const auto tryIt = [&] { other.push_back(onCompany(scratch, "lock pc 00012\n").back()); };
  Script script({[&] { return std::string(kChoose) + "lock pc 00012\n"; },
                 [&] { return tryIt(), "unlock pc 00012\n"; }, [&] { return tryIt(), "quit\n"; }});
  std::istream in(&script);
  std::ostringstream out;
  driver::Driver(test::optionsFor(scratch.path()), in, out).run();
  REQUIRE(other.size() == 2);
  CHECK(other[0]["ok"] == false);
  CHECK(other[1]["ok"] == true);
}

TEST_CASE("the invariants are silent on books in order") { CHECK(violations("") == json::array()); }

TEST_CASE("an entry out of balance by a cent is found") {
  const auto found = violations("put mc 00000002 {\"avere\":99.99}\n");
  REQUIRE(found.size() == 4);  // and the progressives of its voice, on three levels
  CHECK(found[0]["rule"] == "entries balance");
  CHECK(found[0]["difference"] == 0.01);
  CHECK(found[0]["records"] == json({"mc 00000001", "mc 00000002", "mc 00000003"}));
  CHECK(violations("put mc 00000002 {\"avere\":99.996}\n") == json::array());
}

TEST_CASE("progressives are compared on each level") {
  for (const std::string voice : {"00051", "00005", "00001"}) {
    const auto found = violations("put pc " + voice + " {\"dare\":121,\"saldo\":121}\n");
    REQUIRE(found.size() == 1);
    CHECK(found[0]["rule"] == "progressives equal the journal");
    CHECK(found[0]["records"] == json({"pc " + voice}));
    CHECK(found[0]["difference"] == 1.0);
  }
  CHECK(violations("put pc 00012 {\"saldo\":-21}\n").size() == 1);
  CHECK(violations("put pc 00012 {\"saldoiniziale\":5,\"saldo\":-15}\n") == json::array());
  // A voice moved to another conto leaves its sums where they were.
  CHECK(violations("put pc 00051 {\"conto\":\"00021\"}\n").size() == 2);
  const auto stray = violations("put mc 00000001 {\"conto\":\"00052\"}\n");
  REQUIRE(stray.size() == 4);
  CHECK(stray.back()["records"] == json({"mc 00000001"}));
}

TEST_CASE("VAT rows are compared with the VAT line of their entry") {
  for (const std::string change :
       {R"(put iv " 2" {"imposta":5.01})", R"(put iv " 2" {"registro":"2"})",
        R"(put iv " 2" {"numero":"00126"})", R"(put iv " 2" {"datareg":"16/01/2003"})"}) {
    const auto found = violations(change + "\n");
    REQUIRE(found.size() == 1);
    CHECK(found[0]["rule"] == "VAT rows equal the VAT line");
  }
  CHECK(violations(R"(put iv " 2" {"imposta":5.01})"
                   "\n")[0]["records"] == json({"mc 00000003", "iv  1", "iv  2"}));
  // A row of the manual registration has no entry.
  CHECK(violations(R"(put iv " 3" {"numero":"00900","registro":"1","datareg":"15/01/2003","imposta":7})"
                   "\n") == json::array());
}

TEST_CASE("books that cannot be read are not in order") {
  const test::Scratch scratch;
  fill(scratch);
  for (const char* file : {"2003ADmc.ISM", "2003ADmc.ISD"}) std::filesystem::remove(scratch.path() / file);
  const auto a = onCompany(scratch, "verify\n");
  std::set<std::string> rules;  // each rule that reads the journal says so
  for (const json& violation : a.back()["violations"]) {
    CHECK(violation["text"].get<std::string>().find("non si legge") != std::string::npos);
    rules.insert(violation["rule"]);
  }
  for (const char* rule : {"entries balance", "numbers are given once", "VAT rows equal the VAT line"})
    CHECK_MESSAGE(rules.contains(rule), rule);
}
