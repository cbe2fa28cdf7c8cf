// A sheet as text: what the office programs would make of it otherwise.
#include "ui/sheet.h"

#include <doctest/doctest.h>

TEST_CASE("cells as lines of text: numbers with a comma, quotes doubled, formulas kept from acting") {
  const ui::Sheet sheet{
      "Prova",
      {10, 10},
      {{ui::textCell("Conto"), ui::textCell("Importo", true)},
       {ui::textCell("ROSSI; \"il vecchio\""), ui::numberCell(-1234567.895)},
       {ui::textCell("=1+1"), ui::textCell("@cmd"), ui::textCell("-3"), ui::textCell("a-3")},
       {}}};
  CHECK(ui::csvOf(sheet) ==
        "\xEF\xBB\xBF"
        "Conto;Importo\r\n"
        "\"ROSSI; \"\"il vecchio\"\"\";-1234567,90\r\n"
        "\"'=1+1\";\"'@cmd\";\"'-3\";a-3\r\n"
        "\r\n");
}
