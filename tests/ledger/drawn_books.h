// Books drawn from a seed: documents of every kind and movements, posted without a screen.
#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "common/amount.h"
#include "common/text.h"
#include "ledger/books.h"
#include "ledger/invoice_entry.h"
#include "ledger/movement_entry.h"
#include "vat/vat_table.h"

namespace test {

class DrawnBooks {
 public:
  DrawnBooks(Books& books, unsigned seed) : books_(books), generator_(seed) {}

  void post(int entries) {
    for (int i = 0; i < entries; ++i)
      CHECK(tarvex::postEntry(books_.session(), below(4) == 0 ? movement() : document()) ==
            tarvex::Posted::done);
  }

  int below(int limit) { return static_cast<int>(generator_() % static_cast<unsigned>(limit)); }

 private:
  double amount() { return (below(200'000) + 1) / 100.0; }
  std::string day() {
    return common::zeroFill(below(28) + 1, 2) + "/" + common::zeroFill(below(12) + 1, 2) + "/2003";
  }

  tarvex::Entry movement() {
    const std::string date = day();
    tarvex::Movement one{date, date, std::to_string(++number_), "Giro", {}};
    const double moved = amount();
    one.lines = {{"00056", "Cassa contanti", "", moved, 0}, {"00051", "BIANCHI SNC", " x", 0, moved}};
    return movementEntry(one);
  }

  tarvex::Entry document() {
    using tarvex::VatSide;
    constexpr std::array<tarvex::InvoiceKind, 5> kinds{
        {{"mcfv", "", "fv", VatSide::sales, false, false, false},
         {"mccv", "", "cv", VatSide::sales, true, false, false},
         {"MCFA", "", "fa", VatSide::purchases, false, false, false},
         {"mcca", "", "ca", VatSide::purchases, true, false, false},
         {"mcco", "", "co", VatSide::receipts, false, false, false}}};
    const tarvex::InvoiceKind& kind = kinds[static_cast<std::size_t>(below(5))];
    const bool bought = kind.side == VatSide::purchases;
    tarvex::InvoiceDocument one;
    one.datareg = one.datadoc = day();
    one.numero = one.protocollo = std::to_string(++number_);
    one.registro = std::to_string(below(3) + 1);
    one.conto = bought ? "00054" : kind.side == VatSide::receipts ? "00056" : "00051";
    for (int rows = below(4) + 1; rows > 0; --rows) addRow(one, bought);
    one.importo = common::roundBalance(one.importo);
    return invoiceEntry(kind, one);
  }

  void addRow(tarvex::InvoiceDocument& document, bool bought) {
    constexpr std::array<const char*, 5> codes{"22", "10", "4", "E10", "22I"};
    tarvex::InvoiceRow row;
    row.codiva = codes[static_cast<std::size_t>(below(bought ? 5 : 4))];
    row.contropartita = bought ? "00055" : below(2) == 0 ? "00052" : "00053";
    row.imponibile = amount();
    const auto code = tarvex::readVatCode(books_.session(), row.codiva);
    REQUIRE(code);
    row.imposta = common::vatOf(row.imponibile, code->aliquota);
    row.deductible = tarvex::kindOf(*code) != tarvex::VatKind::notDeductible;
    document.importo += row.imponibile + row.imposta;
    document.rows.push_back(row);
  }

  Books& books_;
  std::mt19937 generator_;
  int number_ = 0;
};

}  // namespace test
