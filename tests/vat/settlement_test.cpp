#include "vat/settlement.h"

#include <doctest/doctest.h>

#include <cmath>
#include <numeric>
#include <optional>
#include <random>
#include <utility>

#include "common/amount.h"

using namespace tarvex;

namespace {

VatTable table() {
  VatTable table;
  table[0] = {"22", 22, 0, "Aliquota 22%"};
  table[1] = {"10", 10, 0, "Aliquota 10%"};
  table[2] = {"22I", 22, 100, "Iva 22% indetraibile"};
  table[24] = {"E10", 0, 0, "Art. 10 esente"};
  return table;
}

RegisterRow row(std::string codiva, double imponibile, double imposta) {
  RegisterRow row;
  row.codiva = std::move(codiva);
  row.imponibile = imponibile;
  row.imposta = imposta;
  return row;
}

Settlement settled(SettlementTerms terms, SettlementRows rows) {
  return settle(std::move(terms), rows, table());
}

SettlementTerms withMinimum(double minimum) {
  SettlementTerms terms;
  terms.minimum = minimum;
  return terms;
}

std::vector<std::string> namesOf(const Settlement& settlement) {
  std::vector<std::string> names;
  for (const Figure& figure : figuresOf(settlement)) names.push_back(figure.name);
  return names;
}

}  // namespace

TEST_CASE("what may be deducted, what is owed, and what is in no slot") {
  SettlementTerms terms;
  terms.previous = 10;
  const Settlement made = settled(
      terms, {.purchases = {row("22", 100, 22), row("22i", 50, 11), row("E10", 70, 0), row("ZZ", 500, 110)},
              .sales = {row("22", 200, 44), row("22I", 100, 22), row("", 9, 9)},
              .receipts = {row("10", 10, 1)}});
  CHECK(made.purchaseVat == 22);
  CHECK(made.salesVat == 66);  // on sales a code with a rate counts, whatever may be deducted of it
  CHECK(made.receiptsVat == 1);
  CHECK(made.result == -35);
  CHECK(ofKind(made.purchases, VatKind::notDeductible).size() == 1);
  CHECK(ofKind(made.sales, VatKind::notDeductible).empty());
}

TEST_CASE("a debit equal to the minimum bears no interest and is not carried either") {
  struct Case {
    double debit;
    bool carried;
    std::optional<double> interest;
  };
  for (const Case& expected : {Case{99.99, true, {}}, {100, false, {}}, {100.01, false, 1}, {0, true, {}}}) {
    CAPTURE(expected.debit);
    SettlementTerms terms = withMinimum(100);
    terms.interestPercent = 1;
    const Settlement made =
        settled(terms, {.purchases = {}, .sales = {row("22", 500, expected.debit)}, .receipts = {}});
    CHECK(isCarried(made) == expected.carried);
    CHECK(made.interest == expected.interest);
    CHECK(namesOf(made).size() == (expected.interest ? 7 : 5));
  }
  const Settlement credit =
      settled(withMinimum(0), {.purchases = {row("22", 1, 0.01)}, .sales = {}, .receipts = {}});
  CHECK(isCarried(credit));
  CHECK(namesOf(credit).back() == "Iva a credito:     ");
}

TEST_CASE("whole Euros: each total by itself, a half upwards, below zero too") {
  SettlementTerms terms;
  terms.wholeEuros = true;
  terms.previous = 0.4;
  const Settlement made = settled(terms, {.purchases = {row("22", 10, 2.5)},
                                          .sales = {row("22", 10, 2.49)},
                                          .receipts = {row("22", -10, -2.5)}});
  CHECK(made.purchaseVat == 3);
  CHECK(made.salesVat == 2);
  CHECK(made.receiptsVat == -2);
  CHECK(made.result == 3.4);
}

TEST_CASE("ventilation shares the receipts among the rates of the purchases") {
  SettlementTerms terms;
  terms.ventilation = Ventilation{1220, {"10"}};
  const Settlement made = settled(
      terms, {.purchases = {row("22", 100, 22), row("10", 900, 90), row("E10", 50, 0), row("22I", 100, 22)},
              .sales = {},
              .receipts = {row("22", 1000, 220)}});
  REQUIRE(made.ventilation.size() == 2);  // by code 10 it was forbidden, E10 has no rate
  CHECK(made.ventilation[0].quota == 610);
  CHECK(made.ventilation[0].sum.imponibile == 500);
  CHECK(made.ventilation[0].sum.imposta == doctest::Approx(110.005).epsilon(1e-12));
  CHECK(made.receiptsVat == doctest::Approx(220.01).epsilon(1e-12));  // not the 220 of the rows
  CHECK(made.result == -108.01);

  terms.ventilation->excluded = {"22", "10", "22i", "", ""};
  const Settlement none =
      settled(terms, {.purchases = {row("22", 100, 22)}, .sales = {}, .receipts = {row("22", 1, 1)}});
  CHECK(none.ventilation.empty());
  CHECK(none.receiptsVat == 0);
}

TEST_CASE("the steps of every figure add up to it, and rows to their cents") {
  std::mt19937 random(3);
  const char* codes[] = {"22", "10", "22I", "E10", "gone"};
  for (int round = 0; round < 200; ++round) {
    auto rows = std::make_shared<SettlementRows>();
    std::int64_t owed = 0;
    for (auto* side : {&rows->purchases, &rows->sales, &rows->receipts})
      for (unsigned i = random() % 30; i > 0; --i) {
        const auto code = random() % 5;
        const auto taxable = static_cast<std::int64_t>(random() % 2'000'000) - 200'000;
        const std::int64_t tax = code < 3 ? taxable * 22 / 100 : 0;
        side->push_back(row(codes[code], static_cast<double>(taxable) / 100, static_cast<double>(tax) / 100));
        if (side == &rows->purchases)
          owed -= code < 2 ? tax : 0;
        else
          owed += tax;
      }
    SettlementTerms terms = withMinimum(100);
    terms.interestPercent = 1;
    terms.wholeEuros = round % 3 == 1;
    if (round % 3 == 2) terms.ventilation = Ventilation{1234.56, {}};
    const Settlement made = settle(terms, *rows, table());
    if (round % 3 == 0) CHECK(made.result == static_cast<double>(-owed) / 100);
    for (const TracedTotal& total : traceOf(made, rows)) {
      CAPTURE(total.name);
      const auto steps = total.steps();
      const double sum = std::accumulate(steps.begin(), steps.end(), 0.0,
                                         [](double all, const TraceStep& step) { return all + step.amount; });
      CHECK(std::abs(sum - total.amount) < 0.00001);
    }
  }
}
