#include "desktop/sheet_view.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSaveFile>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "desktop/box.h"
#include "desktop/icons.h"
#include "desktop/words.h"
#include "desktop/xlsx.h"

namespace desktop {

class SheetView::Model : public QAbstractTableModel {
 public:
  Model(const ui::Sheet& sheet, QObject* parent) : QAbstractTableModel(parent), sheet_(sheet) {
    columns_ = sheet.widths.size();
    for (const auto& row : sheet.rows) columns_ = std::max(columns_, row.size());
  }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(sheet_.rows.size());
  }
  int columnCount(const QModelIndex&) const override { return static_cast<int>(columns_); }

  QVariant data(const QModelIndex& at, int role) const override {
    const auto& row = sheet_.rows[static_cast<std::size_t>(at.row())];
    if (static_cast<std::size_t>(at.column()) >= row.size()) return {};
    const ui::SheetCell& cell = row[static_cast<std::size_t>(at.column())];
    switch (role) {
      case Qt::DisplayRole:
        return text(cell.shown());
      case Qt::UserRole:  // what sorting goes by
        return cell.number ? QVariant(*cell.number) : QVariant(text(cell.text));
      case Qt::TextAlignmentRole:
        return int((cell.number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
      case Qt::FontRole: {
        QFont font = QApplication::font();
        font.setBold(cell.bold);
        return font;
      }
      default:
        return {};
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return section + 1;
    QString name;  // A to Z, AA ...
    for (int at = section; at >= 0; at = at / 26 - 1) name.prepend(QChar('A' + at % 26));
    return name;
  }

 private:
  const ui::Sheet& sheet_;
  std::size_t columns_ = 0;
};

SheetView::SheetView(std::shared_ptr<const ui::Sheet> sheet, QWidget* parent)
    : QWidget(parent),
      sheet_(std::move(sheet)),
      sorted_(new QSortFilterProxyModel(this)),
      table_(new QTableView),
      search_(new QLineEdit),
      told_(new QLabel) {
  setWindowTitle("Foglio elettronico - " + text(sheet_->title));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  sorted_->setSourceModel(new Model(*sheet_, this));
  sorted_->setSortRole(Qt::UserRole);
  sorted_->setSortCaseSensitivity(Qt::CaseInsensitive);
  table_->setModel(sorted_);
  table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  for (std::size_t i = 0; i < sheet_->widths.size(); ++i)
    table_->setColumnWidth(static_cast<int>(i), (sheet_->widths[i] + 2) * fontMetrics().averageCharWidth());
  connect(table_->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int column) {
    sortBy(column, table_->horizontalHeader()->sortIndicatorOrder() != Qt::AscendingOrder);
  });

  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(8, 6, 8, 6);
  const auto addTool = [&](const char* name, const QString& words, const QString& tip, auto act) {
    auto* button = new QToolButton;
    button->setIcon(icon(name));
    button->setText(words);
    button->setToolTip(tip);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, act);
    bar->addWidget(button);
  };
  addTool("pdf", "&Salva", "Salva come cartella di lavoro o testo (Ctrl+S)", [this] { save(); });
  addTool("copy", "&Copia", "Copia le celle segnate (Ctrl+C)", [this] { copy(); });
  search_->setPlaceholderText("Cerca (Ctrl+F)");
  search_->setFixedWidth(170);
  connect(search_, &QLineEdit::returnPressed, this, [this] { find(search_->text()); });
  bar->addSpacing(10);
  bar->addWidget(search_);
  told_->setForegroundRole(QPalette::PlaceholderText);
  bar->addWidget(told_);
  bar->addStretch();

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(bar);
  column->addWidget(table_, 1);
  setFocusProxy(table_);
}

void SheetView::sortBy(int column, bool ascending) {
  const Qt::SortOrder order = ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
  table_->horizontalHeader()->setSortIndicatorShown(true);
  table_->horizontalHeader()->setSortIndicator(column, order);
  sorted_->sort(column, order);
}

QString SheetView::selectedText() const {
  const QItemSelection marked = table_->selectionModel()->selection();
  if (marked.isEmpty()) return {};
  const QItemSelectionRange& range = marked.first();
  QStringList rows;
  for (int row = range.top(); row <= range.bottom(); ++row) {
    QStringList cells;
    for (int column = range.left(); column <= range.right(); ++column)
      cells << sorted_->index(row, column).data().toString();
    rows << cells.join(QLatin1Char('\t'));
  }
  return rows.join(QLatin1Char('\n'));
}

// The next cell that holds the words, behind the current one, round the end.
bool SheetView::find(const QString& words) {
  const int columns = sorted_->columnCount(), count = sorted_->rowCount() * columns;
  if (words.isEmpty() || count == 0) return false;
  const QModelIndex now = table_->currentIndex();
  const int from = now.isValid() ? now.row() * columns + now.column() : -1;
  for (int step = 1; step <= count; ++step) {
    const int at = (from + step) % count;
    const QModelIndex index = sorted_->index(at / columns, at % columns);
    if (!index.data().toString().contains(words, Qt::CaseInsensitive)) continue;
    table_->setCurrentIndex(index);
    told_->clear();
    return true;
  }
  told_->setText("non trovato");
  return false;
}

bool SheetView::saveAs(const QString& path) {
  if (!path.endsWith(".csv", Qt::CaseInsensitive)) return writeXlsx(*sheet_, utf8(path));
  QSaveFile file(path);
  const std::string csv = ui::csvOf(*sheet_);
  return file.open(QIODevice::WriteOnly) &&
         file.write(csv.data(), static_cast<qint64>(csv.size())) == static_cast<qint64>(csv.size()) &&
         file.commit();
}

void SheetView::save() {
  const QString name = text(sheet_->title).replace(QLatin1Char('/'), QLatin1Char('-'));
  QString chosen;
  QString path = QFileDialog::getSaveFileName(this, "Salva il foglio", name + ".xlsx",
                                              "Cartella di lavoro (*.xlsx);;Testo (*.csv)", &chosen);
  if (path.isEmpty()) return;
  if (!path.contains(QLatin1Char('.'))) path += chosen.contains("csv") ? ".csv" : ".xlsx";
  if (!saveAs(path))
    showBox({"Il file non è stato scritto: " + utf8(path), "Errore", ui::Ask::ok, ui::Icon::warning},
            window());
}

void SheetView::copy() { QApplication::clipboard()->setText(selectedText()); }

std::vector<BarKey> SheetView::keys() {
  const auto key = [this](const char* name, const char* word, void (*press)(SheetView&)) {
    return BarKey{name, word, [at = QPointer<SheetView>(this), press] {
                    if (at) press(*at);
                  }};
  };
  return {key("Ctrl+F", "cerca", [](SheetView& view) { view.search_->setFocus(); }),
          key("F3", "trova il prossimo", [](SheetView& view) { view.find(view.search_->text()); }),
          key("Ctrl+C", "copia", [](SheetView& view) { view.copy(); }),
          key("Ctrl+S", "salva", [](SheetView& view) { view.save(); }),
          key("Esc", "chiudi", [](SheetView& view) {
            if (view.parentWidget()) view.parentWidget()->close();
          })};
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copy();
  if (event->matches(QKeySequence::Find)) return search_->setFocus(), search_->selectAll();
  if (event->matches(QKeySequence::Save)) return save();
  if (event->key() == Qt::Key_F3) return void(find(search_->text()));
  if (event->key() == Qt::Key_Escape && parentWidget()) return void(parentWidget()->close());
  QWidget::keyPressEvent(event);
}

}  // namespace desktop
