#include <doctest/doctest.h>

#include "common/csv.h"
#include "common/vat_number.h"
#include "common/words.h"

using namespace common;

TEST_CASE("amounts in words keep their spelling") {
  struct Row {
    double amount;
    const char* words;
  };
  const Row rows[] = {
      {0, ",00"},
      {1, "uno,00"},
      {14.5, "quattordivi,50"},
      {21, "ventuno,00"},
      {38, "trentotto,00"},
      {100, "cento,00"},
      {999.99, "novecentonovantanove,99"},
      {1001, "milleuno,00"},
      {1234.5, "milleduecentotrentaquattro,50"},
      {2000, "duemila,00"},
      {101000, "centomila,00"},
      {1000000, "unmilione,00"},
      {101000000, "centounmilioni,00"},
      {1000000001, "unmiliardouno,00"},
      {12345678901.25, "dodicimiliarditrecentoquarantacinquemilioniseicentosettantottomilanovecentouno,25"},
      {1e11, ""},
      {-1, ""},
  };
  for (const Row& row : rows) CHECK(AmountInWords(row.amount) == row.words);
}

TEST_CASE("the check digit of a partita iva") {
  for (const char* right : {"", "00743110157", "12345678903", "00000000018"})
    CHECK_MESSAGE(vatNumberIsRight(right), right);
  for (const char* wrong : {"00000000000", "00743110158", "0743110157", "007431101570", "0074311015A", " "})
    CHECK_FALSE_MESSAGE(vatNumberIsRight(wrong), wrong);
}

TEST_CASE("tables of comma-parted values") {
  const auto table = parseCsv("\xEF\xBB\xBFnome,nota\r\n\"Rossi, \"\"Bar\"\"\",\"due\nrighe\"\n\nForlì, x");
  REQUIRE(table);
  CHECK(table->header == std::vector<std::string>{"nome", "nota"});
  REQUIRE(table->rows.size() == 2);
  CHECK(table->rows[0] == std::vector<std::string>{"Rossi, \"Bar\"", "due\nrighe"});
  CHECK(table->rows[1] == std::vector<std::string>{"Forlì", " x"});
  CHECK(table->column("nota") == 1);
  CHECK_FALSE(table->column("altro"));
  for (const char* wrong :
       {"", "\n", "a,b\n1\n", "a\n\"open", "a\n\"x\"y\n", "a\nx\"y\n", "a\n\xFF\n", "a\rb\n"})
    CHECK_FALSE_MESSAGE(parseCsv(wrong), wrong);
  CHECK_FALSE(readCsv(TARVEX_BINARY_DIR "/no such file"));
}

TEST_CASE("the contents of a new installation are tables") {
  struct Row {
    const char* name;
    std::size_t columns, rows;
  };
  for (const Row& row : {Row{"civa", 5, 25}, {"cpag", 7, 16}, {"piano_conti", 4, 92}, {"causali", 5, 15}}) {
    const auto table = readCsv(std::string(TARVEX_SOURCE_DIR "/data/") + row.name + ".csv");
    REQUIRE_MESSAGE(table, row.name);
    CHECK(table->header.size() == row.columns);
    CHECK(table->rows.size() == row.rows);
  }
}
