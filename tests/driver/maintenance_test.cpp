// A damaged archive, from the first list to books that are in order, or to a list of what is lost.
#include <doctest/doctest.h>

#include "driver/play.h"
#include "tools/damage.h"
#include "tools/scratch.h"

using nlohmann::json;

namespace {

std::string row(const std::string& key, const std::string& entry, const std::string& day,
                const std::string& rest) {
  return "put mc " + key + " {\"nummov\":\"" + entry + "\",\"datareg\":\"" + day + "\",\"chiavedatadoc\":\"" +
         day + "000001\",\"causale\":\"mg\"," + rest + "}\n";
}

// Two entries of two rows each.
std::string company() {
  return "start\nopen APRIAZ\nset text1 \"PROVA S.R.L.\"\nset text5 2003\npress ok\n"
         "put pc 00051 {\"ragsoc\":\"ROSSI\",\"tipo\":\"c\",\"mastro\":\"00001\",\"conto\":\"00005\"}\n"
         "put pr mc {\"valore\":4}\n" +
         row("00000001", "1", "20030115", R"("conto":"00051","dare":100,"descrizione":"Prima riga")") +
         row("00000002", "1", "20030115", R"("conto":"00016","avere":100,"descrizione":"Seconda riga")") +
         row("00000003", "3", "20030116", R"("conto":"00051","dare":7,"descrizione":"Terza riga")") +
         row("00000004", "3", "20030116", R"("conto":"00016","avere":7,"descrizione":"Quarta riga")") +
         "open RICO\npress ok\nquit\n";
}

constexpr std::string_view kChoose = "start\npick Combo1 \"PROVA S.R.L.\"\npick Combo2 2003\npress ok\n";

// The answers behind the choice of the company.
std::vector<json> onCompany(const test::Scratch& scratch, const std::string& script) {
  auto answers = test::play(scratch.path(), std::string(kChoose) + script + "quit\n");
  REQUIRE(answers.size() > 4);
  answers.erase(answers.begin(), answers.begin() + 4);
  return answers;
}

void fill(const test::Scratch& scratch) {
  static const test::Scratch made;
  static const auto answers = test::play(made.path(), company());
  REQUIRE(answers.back()["ok"] == true);
  std::filesystem::copy(made.path(), scratch.path(), std::filesystem::copy_options::recursive);
}

void change(const std::string& path, const std::string& where, std::size_t offset) {
  std::string bytes = test::bytesOf(path);
  const std::size_t at = bytes.find(where);
  REQUIRE(at != std::string::npos);
  bytes[at + offset] = static_cast<char>(bytes[at + offset] ^ 1);
  test::writeBytes(path, bytes);
}

bool shows(const json& answer, const std::string& line) {
  return answer.dump().find(json(line).dump()) != std::string::npos;
}

double amount(const std::vector<json>& answers, std::size_t at, const char* field) {
  return answers.at(at)["records"].at(0)[field].get<double>();
}

}  // namespace

TEST_CASE("sound archives are told in their order, and all are open again") {
  const test::Scratch scratch;
  fill(scratch);
  const auto a = onCompany(scratch,
                           "open VALL1\npress ok\nvalue elenco\ndump pc 00051\npress annulla\nopen "
                           "VALL2\npress ok\nvalue elenco\nverify\n");
  CHECK(a[1]["boxes"][0]["text"] == "Gli archivi sono corretti");
  CHECK(a[1]["boxes"][0]["title"] == "Tarvex");
  const json lines = a[2]["control"]["rows"];
  REQUIRE(lines.size() == 31);
  CHECK(lines[0][0] == "OK archivio ct");
  CHECK(lines[18][0] == "OK archivio lf");
  CHECK(lines[30][0] == "OK archivio dataz");
  CHECK(amount(a, 3, "dare") == 107);
  CHECK(a[6]["boxes"][0]["text"] == "La ricostruzione degli indici è stata effettuata");
  CHECK(a[7]["control"]["rows"].size() == 34);
  CHECK(a[7]["control"]["rows"][7][0] == "OK archivio pr");
  CHECK(a[8]["violations"] == json::array());
}

TEST_CASE("RICO makes the progressives from the rows of its year, on three levels") {
  const test::Scratch scratch;
  fill(scratch);
  const auto a =
      onCompany(scratch, row("00000005", "5", "20021231", R"("conto":"00051","dare":55)") +
                             "dump pc 00051\ndump pc 00005\ndump pc 00001\nput pc 00051 "
                             "{\"dare\":1,\"saldo\":9,\"natura\":\"p\",\"saldoiniziale\":40}\n"
                             "open RICO\npress ok\ndump pc 00051\nput ct 1 {\"bapflag\":\"n\"}\nopen "
                             "RICO\npress ok\ndump pc 00051\nverify\n");
  for (std::size_t level = 0; level < 3; ++level) CHECK(amount(a, level + 1, "dare") == 107);
  CHECK(a[6]["ok"] == true);
  CHECK(amount(a, 7, "dare") == 107);
  CHECK(amount(a, 7, "saldo") == 147);
  // The opening entry would be in the journal: what it brought is taken out, the balance is that of the rows.
  CHECK(amount(a, 11, "dare") == 67);
  CHECK(amount(a, 11, "saldo") == 107);
  // Of another year's row neither the progressives nor the rules know anything.
  CHECK(a[12]["violations"] == json::array());
}

TEST_CASE("an index that is damaged is told by VALL1, mended by VALL2, and the books are in order") {
  const test::Scratch scratch;
  fill(scratch);
  // In the index by entry: the key, the primary key.
  change(scratch / "2003ADmc.ISD", "300000004", 0);
  const auto a =
      onCompany(scratch,
                "open VALL1\npress ok\nvalue elenco\npress annulla\nopen VALL2\npress ok\npress annulla\n"
                "open VALL1\npress ok\nverify\n");
  CHECK(a[1]["boxes"][0]["text"] == "Ci sono errori negli archivi");
  CHECK(a[1]["boxes"][0]["title"] == "Errore");
  CHECK(shows(a[2], "ERRORE  14  su archivio mc"));
  CHECK(a[5]["boxes"][0]["text"] == "La ricostruzione degli indici è stata effettuata");
  CHECK(a[8]["boxes"][0]["text"] == "Gli archivi sono corretti");
  CHECK(a[9]["violations"] == json::array());
}

TEST_CASE("a damaged record is told, the others come back, and verify tells what is lost") {
  const test::Scratch scratch;
  fill(scratch);
  const std::string path = scratch / "2003ADmc.ISD";
  change(path, "Quarta riga", 3);
  const auto a = onCompany(scratch,
                           "open VALL1\npress ok\nvalue elenco\npress annulla\n"
                           "open VALL3\nfile \"" +
                               path +
                               "\"\npress sfoglia\nvalue elenco\npress ripara\nvalue elenco\npress annulla\n"
                               "open VALL2\npress ok\npress annulla\nopen RICO\npress ok\nopen VALL1\npress "
                               "ok\nverify\ndump pc 00016\n");
  CHECK(a[1]["boxes"][0]["text"] == "Ci sono errori negli archivi");
  CHECK(shows(a[2], "ERRORE  14  su archivio mc"));
  CHECK(shows(a[7], "ERRORE  14  su archivio mc"));
  CHECK(shows(a[9], "Gruppi recuperati: 3"));
  CHECK(shows(a[9], "Record perduto: 00000004"));
  CHECK(a[12]["boxes"][0]["text"] == "La ricostruzione degli indici è stata effettuata");
  CHECK(a[17]["boxes"][0]["text"] == "Gli archivi sono corretti");
  const json& found = a[18]["violations"];
  REQUIRE(found.size() == 1);
  CHECK(found[0]["rule"] == "entries balance");
  CHECK(found[0]["difference"] == 7.0);
  CHECK(found[0]["records"] == json({"mc 00000003"}));
  CHECK(amount(a, 19, "avere") == 100);
}
