// The settlement of VAT as values: what a company owes or carries forward for a month, a quarter or the year,
// computed from its VAT rows, with the trace of each figure. Nothing here asks the user or writes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/trace.h"
#include "vat/register.h"
#include "vat/totals.h"

namespace tarvex {

struct VatPeriod {
  enum class Length { month, quarter, year } length = Length::month;
  int number = 1;  // of the month or the quarter

  int firstMonth() const;
  int lastMonth() const;
};

// Receipts that bear no rate of their own, shared out among the rates of the purchases.
struct Ventilation {
  double receipts = 0;                // their amount, VAT included
  std::vector<std::string> excluded;  // codes whose purchases do not count; the case of letters apart
};

struct SettlementTerms {
  VatPeriod period;
  std::string registro;  // rows of this register alone; empty: of all
  double previous = 0;   // the balance carried from the period before: positive for a credit
  std::optional<Ventilation> ventilation;
  bool wholeEuros = false;     // each of the three totals is rounded to the Euro
  std::optional<double> interestPercent;  // on a debit that is paid, where it is asked
  double minimum = 0;                     // the least debit that is paid
};

struct SettlementRows {
  std::vector<RegisterRow> purchases, sales, receipts;  // `slot` is set by settle()
};

struct VentilationLine {
  VatTotal purchases;  // what the share is reckoned on
  double quota = 0;    // of the receipts
  VatSum sum;          // the imposta with its half cent, not cut
};

struct Settlement {
  SettlementTerms terms;
  std::vector<VatTotal> purchases, sales, receipts;
  std::vector<VentilationLine> ventilation;
  VatSum ventilated;
  double purchaseVat = 0, salesVat = 0, receiptsVat = 0;  // rounded to the Euro when that is asked
  double result = 0;                                      // in whole cents; negative: a debit
  std::optional<double> interest;                         // on a debit above the minimum, where it is asked
  double due() const { return interest.value_or(0) - result; }
  bool isDebit() const { return result < 0; }
};

// result = previous + VAT of purchases that may be deducted - VAT of sales - VAT of receipts. A row belongs
// to the first slot with its code, the case of letters apart; a row whose code is in no slot counts nowhere.
// Ventilated VAT takes the place of the VAT of receipts: for each slot with a rate and with purchases,
//   quota = (imponibile + imposta) * receipts / purchases,  imponibile = quota / ((rate + 100) / 100),
//   imposta = imponibile * rate / 100 + 0.005.
Settlement settle(SettlementTerms terms, SettlementRows& rows, const VatTable& table);

// A credit and a debit below the minimum are carried forward; a larger debit is understood as paid.
bool isCarried(const Settlement& settlement);

// Each figure of the settlement with the rows and the roundings that make it. Holds on to `rows`.
Trace traceOf(const Settlement& settlement, std::shared_ptr<const SettlementRows> rows);

struct SettlementPage {
  std::string title;  // as in titleOf()
  std::string note;   // printed below the figures
  ui::Letterhead letterhead;
};
// "LIQUIDAZIONE IVA  Mese: Gennaio  Anno: 2003"; of a single register with its number.
std::string titleOf(const Session& session, const SettlementTerms& terms);

std::shared_ptr<const ui::Report> layOut(const Settlement& settlement, const SettlementPage& page,
                                         ui::Setup setup);

// The figures of the settlement in their order, under their names: "Credito precedente:", "Iva acquisti:" ...
struct Figure {
  std::string name;
  double amount;
};
std::vector<Figure> figuresOf(const Settlement& settlement);

}  // namespace tarvex
