#include "common/amount.h"

#include <doctest/doctest.h>

#include <limits>

#include "common/mask.h"

using namespace common;

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}  // namespace

TEST_CASE("half cents fall as on paper") {
  struct Row {
    double amount, balance, vat;
  };
  const Row rows[] = {
      {1.005, 1.01, 1.01},
      {1.004999, 1.00, 1.00},
      {-1.005, -1.00, -1.00},
      {-1.0051, -1.01, -1.01},
      {2.675, 2.68, 2.68},
      {0.285, 0.29, 0.29},
      {8.345, 8.35, 8.35},
      {-0.004, 0, 0},
      {0, 0, 0},
      {1000000.005, 1000000.01, 1000000.01},
      {-1000000.005, -1000000, -1000000},
      {123456789.125, 123456789.13, 123456789.13},
      {1e15 + 0.25, 1e15 + 0.25, 1e15 + 0.25},
  };
  for (const Row& row : rows) {
    CAPTURE(row.amount);
    CHECK(roundBalance(row.amount) == row.balance);
    CHECK(cutVat(row.amount) == row.vat);
  }
}

TEST_CASE("every half cent of a computed tax goes up, whatever the rate") {
  CHECK(vatOf(10.05, 10) == 1.01);
  CHECK(vatOf(-10.05, 10) == -1.00);
  CHECK(vatOf(102.5, 22) == 22.55);
  CHECK(vatOf(kNaN, 22) != 0);
  for (const int rate : {4, 5, 10, 20, 21, 22})
    for (long long cents = 1; cents < 40000000000; cents = cents * 21 / 20 + 1) {
      const long long tax = (cents * rate + 50) / 100;
      CAPTURE(cents);
      CHECK(vatOf(static_cast<double>(cents) / 100, rate) == static_cast<double>(tax) / 100);
    }
}

TEST_CASE("Lire become Euro by the third decimal alone") {
  CHECK(LireToEuro(1936.27, kEuroRate) == 1.00);
  CHECK(LireToEuro(-1936.27, kEuroRate) == -1.00);
  CHECK(LireToEuro(10000, kEuroRate) == 5.16);
  CHECK(LireToEuro(1.2349, 1) == 1.23);
  CHECK(LireToEuro(1.235, 0) == 1.24);
  CHECK(LireToEuro(-1.235, 0) == -1.24);
  CHECK(LireToEuro(1000000000000, kEuroRate) == 516456899.09);
}

TEST_CASE("a decimal comma is read and changed in the text") {
  std::string text = "12,5cm";
  CHECK(ParseDecimal(text) == 12.5);
  CHECK(text == "12.5cm");
  for (const char* none : {"", "abc", ",", "inf", "nan", "-", "+-5"}) {
    std::string other = none;
    CHECK(ParseDecimal(other) == 0);
  }
  std::string grouped = "1.234,5,6";
  CHECK(ParseDecimal(grouped) == 1.234);
  CHECK(CmToTwips("2,5") == 1418);
  CHECK(CmToTwips("1e9") == 567);
  CHECK(CmToTwips("99999999999") == 2147483647);
  CHECK(TwipsToCm(1417) == "2,50");
  CHECK(TwipsToCm(0) == "0,00");
}

TEST_CASE("numbers as Italian text, both ways") {
  CHECK(toText(1234.5) == "1.234,50");
  CHECK(toText(1.005) == "1,01");
  CHECK(toText(-1.005) == "-1,01");
  CHECK(toText(-0.004) == "0,00");
  CHECK(toText(999.999) == "1.000,00");
  CHECK(toText(1234567, 0) == "1.234.567");
  CHECK(toText(1e15) == "1.000.000.000.000.000,00");
  CHECK(toText(-123456789012345680.0) == "-123.456.789.012.345.680,00");
  CHECK(toText(kNaN) == "?");
  CHECK(toText(-kInfinity) == "?");
  CHECK(toNumber("1.234,50") == 1234.5);
  CHECK(toNumber("-1.234.567,89") == -1234567.89);
  CHECK(toNumber("  7") == 7);
  CHECK(toNumber("infinity") == 0);
  CHECK(toNumber(std::string(400, '9')) == 0);
}

TEST_CASE("pictures") {
  struct Row {
    const char* picture;
    double value;
    const char* text;
  };
  const Row rows[] = {
      {"###,###,##0.00", 1234567.895, "1.234.567,90"},
      {"###,###,##0.00", 0, "0,00"},
      {"######0.00", -1234.5, "-1234,50"},
      {"###,###,##0", 1234.5, "1.235"},
      {"##", 0, ""},
      {"#####", 1234567, "1234567"},
      {"0#", 5, "05"},
      {"00000000", 42, "00000042"},
      {"#0.0", 12.25, "12,3"},
      {"0.0", 100, "100,0"},
      {"0.##", 1.5, "1,5"},
      {"0.##", 1, "1"},
      {"#.00", 0.5, ",50"},
      {"0.00", -0.001, "0,00"},
      {"##,####,###,###0.00", 12345.6, "12.345,60"},
      {"#0.0000000", 1936.27, "1936,2700000"},
      {"###,##0.00000", 0.000005, "0,00001"},
      {"0,000", 12, "0.012"},
  };
  for (const Row& row : rows) {
    CAPTURE(row.picture);
    CHECK(format(row.picture, row.value) == row.text);
  }
}
