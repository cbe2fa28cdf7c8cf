// The registers on paper.
#include <utility>

#include "common/mask.h"
#include "common/text.h"
#include "vat/register.h"

namespace tarvex {
namespace {

using common::Align;

std::string amount(double value) { return common::format("######0.00", value); }
std::string total(const RegisterRow& r) { return amount(r.imponibile + r.imposta); }

// Whether each column stands under its own word of the heading.
template <class Row, std::size_t N>
consteval bool standUnder(const ui::Column<Row> (&columns)[N], std::string_view heading) {
  for (const auto& column : columns)
    if (heading.substr(column.at - 1, column.width).find(column.head) == std::string_view::npos) return false;
  return true;
}

template <class Row, std::size_t N>
consteval std::size_t widthOf(const ui::Column<Row> (&columns)[N]) {
  return static_cast<std::size_t>(columns[N - 1].at + columns[N - 1].width - 1);
}

constexpr std::string_view kSalesHeading =
    "Data reg.   Fatt. Data   "
    "            Ragione sociale                Imponibile Aliq.   Imposta      Totale Note      ";

constexpr ui::Column<RegisterRow> kSalesColumns[] = {
    {"Data reg.", 1, 10, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.datareg; }},
    {"Fatt.", 13, 5, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.numero; }},
    {"Data", 19, 10, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.datadoc; }},
    {"Ragione sociale", 30, 30, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.ragsoc; }},
    {"Imponibile", 69, 10, Align::right, [](const RegisterRow& r) { return amount(r.imponibile); }},
    {"Aliq.", 80, 5, Align::left, [](const RegisterRow& r) { return rateText(r.aliquota); }},
    {"Imposta", 85, 10, Align::right, [](const RegisterRow& r) { return amount(r.imposta); }},
    {"Totale", 97, 10, Align::right, total},
    {"Note", 108, 10, Align::left, [](const RegisterRow& r) { return r.note; }},
};
static_assert(ui::ordered(kSalesColumns) && standUnder(kSalesColumns, kSalesHeading));

constexpr std::string_view kPurchaseHeading =
    "N.Reg. Data Reg.   N.Fatt. Data fatt."
    "       Ragione sociale                Imponibile Aliq.   Imposta     Totale Note";

constexpr ui::Column<RegisterRow> kPurchaseColumns[] = {
    {"N.Reg.", 1, 6, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.numero; }},
    {"Data Reg.", 8, 10, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.datareg; }},
    {"N.Fatt.", 19, 8, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.fornitore; }},
    {"Data fatt.", 28, 10, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.datadoc; }},
    {"Ragione sociale", 39, 30, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.ragsoc; }},
    {"Imponibile", 76, 10, Align::right, [](const RegisterRow& r) { return amount(r.imponibile); }},
    {"Aliq.", 87, 5, Align::left, [](const RegisterRow& r) { return rateText(r.aliquota); }},
    {"Imposta", 92, 10, Align::right, [](const RegisterRow& r) { return amount(r.imposta); }},
    {"Totale", 103, 10, Align::right, total},
    {"Note", 114, 10, Align::left, [](const RegisterRow& r) { return r.note; }},
};
static_assert(ui::ordered(kPurchaseColumns) && standUnder(kPurchaseColumns, kPurchaseHeading));

constexpr std::string_view kReceiptsHeading =
    "Data      "
    "  Imponibile  Aliq.      Imposta     Totale Note";

constexpr ui::Column<RegisterRow> kReceiptsColumns[] = {
    {"Data", 1, 10, Align::left, [](const RegisterRow& r) { return r.further ? "" : r.datareg; }},
    {"Imponibile", 13, 10, Align::right, [](const RegisterRow& r) { return amount(r.imponibile); }},
    {"Aliq.", 25, 5, Align::left, [](const RegisterRow& r) { return rateText(r.aliquota); }},
    {"Imposta", 33, 10, Align::right, [](const RegisterRow& r) { return amount(r.imposta); }},
    {"Totale", 44, 10, Align::right, total},
    {"Note", 55, 30, Align::left, [](const RegisterRow& r) { return r.note; }},
};
static_assert(ui::ordered(kReceiptsColumns) && standUnder(kReceiptsColumns, kReceiptsHeading));

std::string titleOf(const RegisterKind& kind, const RegisterPage& page) {
  std::string title(kind.title);
  return title.append(page.registro)
      .append(kind.month)
      .append(page.month)
      .append(kind.year)
      .append(page.year);
}

constexpr VatKind kGroups[] = {VatKind::normal, VatKind::notDeductible, VatKind::exempt};

void writeSums(ui::Paged& out, const RegisterKind& kind, const Register& content) {
  out.keep(static_cast<int>(content.totals.size()) + 6);
  out.line();
  out.bold("T O T A L I");
  if (kind.side != VatSide::purchases) return writeTotals(out, content.totals);
  writeGroupedTotals(out, content.totals, kGroups);
  writeGrandTotal(out, content.totals);
}

}  // namespace

const RegisterKind kSalesRegister{.side = VatSide::sales,
                                  .unit = "STRIV",
                                  .name = "Registro iva vendite",
                                  .title = "REGISTRO IVA VENDITE ",
                                  .month = "   Mese: ",
                                  .year = "  Anno: ",
                                  .heading = kSalesHeading,
                                  .width = widthOf(kSalesColumns),
                                  .gap = "Salto fattura dal numero:",
                                  .counter = "regiv",
                                  .line = [](const RegisterRow& row) { return ui::line(kSalesColumns, row); },
                                  .read = readSalesRows};

const RegisterKind kPurchaseRegister{
    .side = VatSide::purchases,
    .unit = "STRIA",
    .name = "Registro iva acquisti",
    .title = "REGISTRO IVA ACQUISTI ",
    .month = " Mese: ",
    .year = " Anno: ",
    .heading = kPurchaseHeading,
    .width = widthOf(kPurchaseColumns),
    .gap = "Salto protocollo dal numero:",
    .counter = "regia",
    .line = [](const RegisterRow& row) { return ui::line(kPurchaseColumns, row); },
    .read = readPurchaseRows};

const RegisterKind kReceiptsRegister{
    .side = VatSide::receipts,
    .unit = "STRIC",
    .name = "Registro iva corrispettivi",
    .title = "REGISTRO IVA CORRISPETTIVI  ",
    .month = "   Mese: ",
    .year = "  Anno: ",
    .heading = kReceiptsHeading,
    .width = widthOf(kReceiptsColumns),
    .gap = {},
    .counter = {},
    .line = [](const RegisterRow& row) { return ui::line(kReceiptsColumns, row); },
    .read = readReceiptRows};

std::shared_ptr<const ui::Report> layOut(const RegisterKind& kind, const Register& content,
                                         const RegisterPage& page, ui::Setup setup) {
  auto report = std::make_shared<ui::Report>(kind.name, ui::fitted(std::move(setup), kind.width));
  const std::string title = titleOf(kind, page);
  ui::Paged out(*report, kind.width, [&](ui::Paged& head, int number) {
    writeLetterhead(head, page.letterhead);
    head.centred(title);
    head.right("Pagina " + std::to_string(number));
    head.bold(kind.heading);
    head.rule();
  });
  for (const RegisterRow& row : content.rows) out.line(kind.line(row));
  writeSums(out, kind, content);
  return report;
}

}  // namespace tarvex
