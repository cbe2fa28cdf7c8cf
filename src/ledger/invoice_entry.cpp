#include "ledger/invoice_entry.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "common/amount.h"
#include "common/date.h"
#include "common/text.h"
#include "ledger/vat_rows.h"

namespace tarvex {
namespace {

constexpr std::string_view kVatOnPurchases = "00011", kVatOnSales = "00012", kVatOnReceipts = "00013",
                           kVatNotDeducted = "00014";

// The account of a sales invoice, of a receipt and of a supplier's credit note stands in `dare`.
bool isDebit(const InvoiceKind& kind) { return (kind.side == VatSide::purchases) == kind.creditNote; }

// One line for each contropartita, in the order of its first row, with the sum of all its rows.
void addContropartite(Entry& entry, const InvoiceDocument& document, bool credit) {
  std::set<std::string_view> done;
  for (const InvoiceRow& row : document.rows) {
    if (row.contropartita.empty() || !done.insert(row.contropartita).second) continue;
    double sum = 0;
    for (const InvoiceRow& other : document.rows)
      if (other.contropartita == row.contropartita) sum += other.imponibile;
    addGroupedLine(entry, row.contropartita, sum, credit, document.descrizione);
  }
}

void addVatLines(Entry& entry, const InvoiceKind& kind, const InvoiceDocument& document, bool credit) {
  double deducted = 0, notDeducted = 0;
  for (const InvoiceRow& row : document.rows)
    (kind.side == VatSide::purchases && !row.deductible ? notDeducted : deducted) += row.imposta;
  const std::string_view voice = kind.side == VatSide::sales       ? kVatOnSales
                                 : kind.side == VatSide::purchases ? kVatOnPurchases
                                                                   : kVatOnReceipts;
  addGroupedLine(entry, voice, deducted, credit, document.descrizione);
  addGroupedLine(entry, kVatNotDeducted, notDeducted, credit, document.descrizione);
}

// What the three kinds of VAT row have in common.
template <class R>
R vatRow(const InvoiceDocument& document, const InvoiceRow& row, double sign) {
  R vat;
  vat.mese = document.datareg.substr(3, 2);
  vat.imponibile = sign * row.imponibile;
  vat.codiva = row.codiva;
  vat.imposta = sign * row.imposta;
  vat.registro = document.registro;
  return vat;
}

rec::iv salesRow(const InvoiceDocument& document, const InvoiceRow& row, double sign) {
  auto vat = vatRow<rec::iv>(document, row, sign);
  vat.numero = registerNumber(document.numero);
  vat.datadoc = document.datadoc;
  vat.conto = document.conto;
  vat.chiavereg = vat.registro + vat.numero;
  vat.datareg = document.datareg;
  return vat;
}

rec::ia purchaseRow(const InvoiceDocument& document, const InvoiceRow& row, double sign,
                    const std::string& numdoc) {
  auto vat = vatRow<rec::ia>(document, row, sign);
  vat.protocollo = registerNumber(document.protocollo);
  vat.numero = numdoc;
  vat.datadoc = document.datadoc;
  vat.conto = document.conto;
  vat.chiavereg = vat.registro + vat.protocollo;
  vat.datareg = document.datareg;
  return vat;
}

rec::ic receiptRow(const InvoiceDocument& document, const InvoiceRow& row, double sign) {
  auto vat = vatRow<rec::ic>(document, row, sign);
  vat.numero = registerNumber(document.numero);
  vat.datareg = common::DateToKey(document.datareg);
  vat.chiavereg = vat.registro + vat.numero;
  return vat;
}

void addVatRow(Entry& entry, const InvoiceKind& kind, const InvoiceDocument& document,
               const InvoiceRow& row) {
  const double sign = kind.creditNote ? -1 : 1;
  if (kind.side == VatSide::sales)
    entry.sales.push_back(salesRow(document, row, sign));
  else if (kind.side == VatSide::purchases)
    entry.purchases.push_back(purchaseRow(document, row, sign, entry.head.numdoc));
  else
    entry.receipts.push_back(receiptRow(document, row, sign));
}

std::string amountText(double amount) { return amount == 0 ? std::string() : common::toText(amount); }

RegisterCounter counterOf(const InvoiceKind& kind, const InvoiceDocument& document) {
  if (kind.side == VatSide::sales) return {};
  const bool purchase = kind.side == VatSide::purchases;
  const std::string number = registerNumber(purchase ? document.protocollo : document.numero);
  return {(purchase ? "prot" : "co") + document.registro,
          static_cast<std::int32_t>(common::numberValue(number))};
}

}  // namespace

bool isVatVoice(std::string_view code) {
  return code == kVatOnPurchases || code == kVatOnSales || code == kVatOnReceipts || code == kVatNotDeducted;
}

double imbalance(const InvoiceDocument& document) {
  double rows = 0;
  for (const InvoiceRow& row : document.rows) rows += row.imponibile + row.imposta;
  return common::roundBalance(document.importo - rows);
}

void convertFromLire(InvoiceDocument& document, double rate) {
  const auto convert = [rate](double& amount) { amount = common::LireToEuro(amount, rate); };
  convert(document.importo);
  for (InvoiceRow& row : document.rows) {
    convert(row.imponibile);
    convert(row.imposta);
  }
  const auto greatest = std::max_element(document.rows.begin(), document.rows.end(),
                                         [](const InvoiceRow& a, const InvoiceRow& b) {
                                           return std::fabs(a.imponibile) < std::fabs(b.imponibile);
                                         });
  if (greatest == document.rows.end()) return;
  greatest->imponibile = common::roundBalance(greatest->imponibile + imbalance(document));
  for (InvoiceRow& row : document.rows) {
    row.typed.testo = amountText(row.imponibile);
    row.typed.importo = amountText(row.imposta);
  }
}

Entry invoiceEntry(const InvoiceKind& kind, const InvoiceDocument& document) {
  Entry entry;
  const std::string numdoc = common::right(common::zeroFill(document.numero, 6), 6);
  const bool purchase = kind.side == VatSide::purchases;
  entry.head = {std::string(kind.causale),
                document.datareg,
                document.datadoc,
                numdoc,
                purchase ? registerNumber(document.protocollo) : std::string(),
                document.registro,
                0};
  const bool debit = isDebit(kind);
  entry.lines.push_back(
      {document.conto, debit ? document.importo : 0, debit ? 0 : document.importo, document.descrizione});
  addContropartite(entry, document, debit);
  addVatLines(entry, kind, document, debit);
  for (const InvoiceRow& row : document.rows) {
    if (row.imponibile != 0 || row.imposta != 0) addVatRow(entry, kind, document, row);
    if (!row.contropartita.empty()) entry.rows.push_back(row.typed);
  }
  entry.counter = counterOf(kind, document);
  return entry;
}

}  // namespace tarvex
