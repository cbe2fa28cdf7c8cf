#include "vat/register.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

#include "archives/iv.h"
#include "common/amount.h"
#include "common/mask.h"
#include "common/text.h"

namespace tarvex {
namespace {

using common::Align;

std::string amount(double value) { return common::format("######0.00", value); }
std::string total(double value) { return common::format("###,###,##0.00", value); }
std::string rate(double percent) { return common::format("##0.##", percent); }

// Whether each column stands under its own word of the heading.
template <class Row, std::size_t N>
consteval bool standUnder(const ui::Column<Row> (&columns)[N], std::string_view heading) {
  for (const auto& column : columns)
    if (heading.substr(column.at - 1, column.width).find(column.head) == std::string_view::npos) return false;
  return true;
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
    {"Aliq.", 80, 5, Align::left, [](const RegisterRow& r) { return rate(r.aliquota); }},
    {"Imposta", 85, 10, Align::right, [](const RegisterRow& r) { return amount(r.imposta); }},
    {"Totale", 97, 10, Align::right, [](const RegisterRow& r) { return amount(r.imponibile + r.imposta); }},
    {"Note", 108, 10, Align::left, [](const RegisterRow& r) { return r.note; }},
};
static_assert(ui::ordered(kSalesColumns) && standUnder(kSalesColumns, kSalesHeading));

constexpr std::string_view kTotalsHeading = "Aliquota             Imponibile       Imposta";
constexpr int kLabelWidth = 17;

constexpr ui::Column<RegisterTotal> kTotalsColumns[] = {
    {"Aliquota", 1, kLabelWidth, Align::left, [](const RegisterTotal& t) { return t.label; }},
    {"Imponibile", 18, 14, Align::right, [](const RegisterTotal& t) { return total(t.imponibile); }},
    {"Imposta", 32, 14, Align::right, [](const RegisterTotal& t) { return total(t.imposta); }},
};
static_assert(ui::ordered(kTotalsColumns) && standUnder(kTotalsColumns, kTotalsHeading));

void add(RegisterTotal& to, double imponibile, double imposta) {
  to.imponibile = common::roundBalance(to.imponibile + imponibile);
  to.imposta = common::roundBalance(to.imposta + imposta);
}

// The value of a number of any length, held where it can still be counted on from.
long whole(std::string_view number) {
  constexpr double most = 1e15;
  return std::lround(std::clamp(common::numberValue(number), -most, most));
}

std::string missingCode(std::string_view code) {
  return "Il codice iva " + std::string(code) +
         " non risulta più registrato nella tabella iva. Il registro non sarà stampato correttamente.";
}

// A number may stand twice in a register, on an invoice and on a credit note: they are two documents.
bool sameDocument(const RegisterRow& a, const RegisterRow& b) {
  return a.numero == b.numero && a.conto == b.conto && a.datadoc == b.datadoc;
}

std::optional<std::string> gapBetween(const RegisterKind& kind, const RegisterRow& previous,
                                      const RegisterRow& row) {
  const long from = whole(previous.numero) + 1, to = whole(row.numero) - 1;
  if (to < from) return {};
  return std::string(kind.gap) + std::to_string(from) + "-" + std::to_string(to);
}

RegisterRow rowOf(const rec::iv& from, std::string_view primaryKey, std::string ragsoc) {
  RegisterRow row;
  row.posted = whole(primaryKey);
  row.numero = from.numero;
  row.datareg = from.datareg;
  row.datadoc = from.datadoc;
  row.conto = from.conto;
  row.ragsoc = std::move(ragsoc);
  row.imponibile = from.imponibile;
  row.codiva = from.codiva;
  row.aliquota = common::numberValue(from.aliquota);
  row.imposta = from.imposta;
  return row;
}

// The lines of a register, with title and headings wherever a page begins.
class Writer {
 public:
  Writer(const RegisterKind& kind, const RegisterPage& page, ui::Report& report, std::size_t width)
      : kind_(kind), page_(page), report_(report), width_(width) {
    head();
  }

  void line(std::string_view text) {
    if (report_.left() == 0) turn();
    report_.line(text);
  }
  void bold(std::string_view text) {
    if (report_.left() == 0) turn();
    report_.setBold(true);
    report_.line(text);
    report_.setBold(false);
  }
  // Begins a page where so many lines would be torn apart, if a page can hold them at all.
  void keep(int lines) {
    if (report_.left() < lines && headLines_ + lines <= report_.setup().pageLines) turn();
  }

 private:
  void turn() {
    report_.newPage();
    head();
  }
  void head();
  std::string centred(std::string_view text) const {
    const std::size_t taken = common::length(text);
    return std::string(taken < width_ ? (width_ - taken) / 2 : 0, ' ').append(text);
  }

  const RegisterKind& kind_;
  const RegisterPage& page_;
  ui::Report& report_;
  std::size_t width_;
  int number_ = 0, headLines_ = 0;
};

void Writer::head() {
  const int before = report_.left();
  report_.lines(page_.blankLines);
  report_.setBold(true);
  if (!page_.company.empty()) {
    report_.line(centred(page_.company));
    report_.line(centred("P.IVA " + page_.vatNumber));
  }
  std::string title(kind_.title);
  title.append(page_.registro).append(kind_.month).append(page_.month).append(kind_.year).append(page_.year);
  report_.line(centred(title));
  report_.setBold(false);
  report_.line(common::fit("Pagina " + std::to_string(++number_), width_, Align::right));
  report_.setBold(true);
  report_.line(kind_.heading);
  report_.setBold(false);
  report_.line(std::string(width_, '-'));
  headLines_ = before - report_.left();
}

}  // namespace

const RegisterKind kSalesRegister{
    .name = "Registro iva vendite",
    .title = "REGISTRO IVA VENDITE ",
    .month = "   Mese: ",
    .year = "  Anno: ",
    .heading = kSalesHeading,
    .gap = "Salto fattura dal numero:",
    .counter = "regiv",
    .line = [](const RegisterRow& row) { return ui::line(kSalesColumns, row); }};

Register makeRegister(const RegisterKind& kind, std::vector<RegisterRow> rows, const VatTable& table) {
  Register made{.rows = std::move(rows), .totals = {}, .sum = {.label = "Totale"}, .notices = {}};
  std::stable_sort(made.rows.begin(), made.rows.end(), [](const RegisterRow& a, const RegisterRow& b) {
    return std::tie(a.numero, a.posted) < std::tie(b.numero, b.posted);
  });
  std::array<RegisterTotal, kVatSlots> sums;
  const RegisterRow* previous = nullptr;
  for (RegisterRow& row : made.rows) {
    row.further = previous && sameDocument(*previous, row);
    if (const int slot = slotOf(table, row.codiva); slot >= 0) {
      add(sums[slot], row.imponibile, row.imposta);
      if (row.aliquota == 0) row.note = table[slot].descrizione;  // why the row bears no tax
    } else {
      row.note = row.codiva;
      made.notices.push_back({RegisterNotice::About::missingCode, missingCode(row.codiva)});
    }
    if (previous)
      if (const auto gap = gapBetween(kind, *previous, row))
        made.notices.push_back({RegisterNotice::About::gap, *gap});
    previous = &row;
  }
  for (int slot = 0; slot < kVatSlots; ++slot) {
    if (sums[slot].imponibile == 0 && sums[slot].imposta == 0) continue;
    sums[slot].label = common::cut(rate(table[slot].aliquota) + " " + table[slot].descrizione, kLabelWidth);
    add(made.sum, sums[slot].imponibile, sums[slot].imposta);
    made.totals.push_back(sums[slot]);
  }
  return made;
}

std::optional<std::vector<RegisterRow>> readSalesRows(Session& session, std::string_view registro,
                                                      std::string_view mese) {
  std::vector<RegisterRow> rows;
  OpenArchive<rec::iv> iv(session, 3010, 3011);
  if (!iv->isOpen()) return {};
  store::Code result = iv->search(2, "00000");
  if (result == store::kNotFound) result = iv->next(2);
  for (; result == store::kOk; result = iv->next(2)) {
    const rec::iv& row = iv->B;
    if (row.registro != registro || row.mese != mese) continue;
    session.pc.search(0, row.conto);
    session.CheckArchiveResult(store::Operation::read, session.pc.code, 3012);
    const bool known = session.store.LastArchiveResult == store::kOk;
    rows.push_back(rowOf(row, iv->primaryKey(), known ? session.pc.B.ragsoc : std::string()));
  }
  if (result == store::kNotFound) return rows;
  session.CheckArchiveResult(store::Operation::read, iv->code, 3013);
  return {};
}

std::shared_ptr<const ui::Report> layOut(const RegisterKind& kind, const Register& content,
                                         const RegisterPage& page, ui::Setup setup) {
  const std::size_t width = common::length(kind.heading);
  const double sheet = 595 - 2 * 28;  // A4 upright, within the margins of ui::Report
  const double widest = sheet / (0.6 * static_cast<double>(width));
  setup.landscape = false;
  setup.size = setup.size > 0 ? std::min(setup.size, widest) : widest;

  auto report = std::make_shared<ui::Report>(kind.name, std::move(setup));
  Writer out(kind, page, *report, width);
  for (const RegisterRow& row : content.rows) out.line(kind.line(row));

  out.keep(static_cast<int>(content.totals.size()) + 6);
  out.line("");
  out.bold("T O T A L I");
  out.bold(kTotalsHeading);
  for (const RegisterTotal& total : content.totals) out.line(ui::line(kTotalsColumns, total));
  out.line(std::string(common::length(kTotalsHeading), '-'));
  out.bold(ui::line(kTotalsColumns, content.sum));
  return report;
}

}  // namespace tarvex
