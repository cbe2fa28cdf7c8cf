#include "ledger/books/statement.h"

#include "chart/account_field.h"
#include "common/amount.h"
#include "common/text.h"
#include "ledger/books/journal_walk.h"
#include "ui/paged.h"

namespace tarvex {
namespace {

using common::Align;

constexpr std::size_t kWidth = 83;
constexpr std::string_view kTitle = "ESTRATTO CONTO  ";
constexpr std::string_view kHeading =
    "  N. e data doc.   Descrizione movimento                         Dare         Avere";

bool belongsToDocument(const rec::mc& row) { return row.causale != "ap" && row.causale != "cp"; }

// Takes the rows of one document after the other into the statement.
class Documents {
 public:
  Documents(Statement& statement, bool openOnly) : statement_(statement), openOnly_(openOnly) {}

  void add(const rec::mc& row, const BookMoney& money) {
    if (row.chiavecontodoc != document_) close();
    document_ = row.chiavecontodoc;
    rows_.push_back({documentOf(row), row.descrizione, money.of(row.dare), money.of(row.avere)});
    rest_ = common::roundBalance(rest_ + row.dare - row.avere);
  }

  void close() {
    if (!openOnly_ || rest_ != 0)
      for (StatementRow& row : rows_) {
        statement_.dare = common::roundBalance(statement_.dare + row.dare);
        statement_.avere = common::roundBalance(statement_.avere + row.avere);
        statement_.rows.push_back(std::move(row));
      }
    rows_.clear();
    rest_ = 0;
  }

 private:
  Statement& statement_;
  bool openOnly_;
  std::string document_;
  std::vector<StatementRow> rows_;
  double rest_ = 0;  // in Euro, whatever is printed
};

struct Printed {
  const StatementRow& row;
  const BookMoney& money;
};

constexpr ui::Column<Printed> kColumns[] = {
    {"N. e data doc.", 2, 17, Align::left, [](const Printed& p) { return p.row.document; }},
    {"Descrizione movimento", 20, 36, Align::left, [](const Printed& p) { return p.row.text; }},
    {"Dare", 56, 14, Align::right, [](const Printed& p) { return p.money.text(p.row.dare); }},
    {"Avere", 70, 14, Align::right, [](const Printed& p) { return p.money.text(p.row.avere); }},
};
static_assert(ui::ordered(kColumns));

}  // namespace

double Statement::saldo() const { return common::roundBalance(dare - avere); }

std::optional<Statement> readStatement(Session& session, const std::string& code, bool openOnly,
                                       const BookMoney& money) {
  if (!readVoiceByCode(session, code, 2621)) return {};
  Statement statement{.name = session.pc.B.ragsoc, .isSupplier = session.pc.B.tipo != "c"};
  Documents documents(statement, openOnly);
  JournalWalk walk = JournalWalk::byDocument(session, code);
  while (const rec::mc* row = walk.next())
    if (belongsToDocument(*row)) documents.add(*row, money);
  documents.close();
  if (!walk.isWhole()) return {};
  return statement;
}

std::shared_ptr<const ui::Report> layOut(const Statement& statement, const StatementPage& page,
                                         ui::Setup setup) {
  auto report = std::make_shared<ui::Report>("Estratto conto", ui::fitted(std::move(setup), kWidth));
  const std::string kind = page.openOnly ? "Partite aperte" : "Storico";
  ui::Paged out(*report, kWidth, [&](ui::Paged& head, int number) {
    head.centred(std::string(kTitle) + kind);
    head.line(page.company);
    head.right("Pagina " + std::to_string(number));
    head.bold((statement.isSupplier ? "Fornitore: " : "Cliente: ") + statement.name);
    if (!page.money.name().empty()) head.line(page.money.name());
    head.rule();
    head.bold(kHeading);
    head.rule();
  });
  for (const StatementRow& row : statement.rows) out.line(ui::line(kColumns, {row, page.money}));
  out.keep(3);
  out.rule();
  out.line(ui::line(kColumns, {StatementRow{{}, {}, statement.dare, statement.avere}, page.money}));
  out.bold("Saldo: " + common::figure(page.money.text(statement.saldo()), 15));
  return report;
}

}  // namespace tarvex
