#include "desktop/list_view.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "desktop/words.h"
#include "ui/tree.h"

namespace desktop {

class ListView::Model : public QAbstractTableModel {
 public:
  Model(const ui::List& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
  int columnCount(const QModelIndex&) const override { return static_cast<int>(list_.columns().size()); }

  QVariant data(const QModelIndex& at, int role) const override {
    const auto row = static_cast<std::size_t>(at.row()), column = static_cast<std::size_t>(at.column());
    if (role == Qt::DisplayRole)
      return branch(at.row()) + text(list_.rows().cell(row, column)) + gap(column);
    return role == Qt::TextAlignmentRole ? alignment(column) : QVariant();
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    const auto column = static_cast<std::size_t>(section);
    if (role == Qt::DisplayRole) return text(list_.columns()[column].title) + gap(column);
    return role == Qt::TextAlignmentRole ? alignment(column) : QVariant();
  }

  void reset() {
    beginResetModel();
    count_ = rows();
    ended_ = false;
    endResetModel();
  }

  // The rows that the list has read since then; those shown stay as they are.
  void extend() {
    if (rows() <= count_) return;
    beginInsertRows({}, count_, rows() - 1);
    count_ = rows();
    endInsertRows();
  }

  bool canFetchMore(const QModelIndex&) const override { return !ended_; }
  void fetchMore(const QModelIndex&) override {
    ended_ = !list_.grow();
    extend();
  }

 private:
  // What stands in front of a node of a tree.
  QString branch(int row) const {
    const auto* tree = dynamic_cast<const ui::Tree*>(&list_);
    if (!tree) return {};
    const QString mark = !tree->hasChildren(row) ? "   " : tree->isOpen(row) ? "\u25BE " : "\u25B8 ";
    return QString(6 * tree->depth(row), QLatin1Char(' ')) + mark;
  }
  // Between a figure and what stands at its right.
  QString gap(std::size_t column) const {
    const bool right = list_.columns()[column].right && column + 1 < list_.columns().size();
    return right ? QString(QChar(0x2002)) : QString();
  }
  int rows() const { return static_cast<int>(list_.rows().count()); }
  QVariant alignment(std::size_t column) const {
    return int((list_.columns()[column].right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  const ui::List& list_;
  int count_ = 0;
  bool ended_ = false;
};

ListView::ListView(ui::List& list, ui::User& user, QWidget* parent)
    : QTableView(parent), list_(list), user_(user), model_(new Model(list, this)) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(list.takesSeveral() ? ExtendedSelection : SingleSelection);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  verticalHeader()->setMinimumSectionSize(10);
  horizontalHeader()->setHighlightSections(false);
  if (dynamic_cast<ui::Tree*>(&list)) {
    setAlternatingRowColors(false);
    horizontalHeader()->hide();
  }
  setModel(model_);
  for (std::size_t i = 0; i < list.columns().size(); ++i)
    setColumnWidth(static_cast<int>(i), chars(list.columns()[i].width));
  horizontalHeader()->setStretchLastSection(true);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { push(); });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& at) { user_.pick(list_, at.row()); });
}

int ListView::chars(int count) const {
  return fontMetrics().horizontalAdvance(QLatin1Char('0')) * count + 14;
}

QSize ListView::sizeHint() const {
  int width = 22;
  for (const ui::ListColumn& column : list_.columns()) width += chars(column.width);
  return {std::min(width, 1080), list_.height() * verticalHeader()->defaultSectionSize() + 32};
}

void ListView::pull() {
  const QScopedValueRollback guard(pulling_, true);
  // A new set of rows may stand where the old one stood: its length tells, and what is in sight is drawn
  // anew.
  if (shown_ != &list_.rows() || model_->rowCount({}) > static_cast<int>(list_.rows().count())) {
    model_->reset();
    shown_ = &list_.rows();
  } else {
    model_->extend();
    viewport()->update();
  }
  QItemSelection rows;
  for (const int row : list_.selectedRows())
    rows.select(model_->index(row, 0), model_->index(row, static_cast<int>(list_.columns().size()) - 1));
  selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
  if (list_.selected() < 0) return;
  const QModelIndex first = model_->index(list_.selectedRows().back(), 0);
  selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  scrollTo(first);
}

void ListView::push() {
  if (pulling_) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  if (rows == list_.selectedRows()) return;
  if (!user_.select(list_, std::move(rows))) pull();
}

// Right opens a node, Left closes it. False: another key, or nothing to open or to close.
bool ListView::steps(ui::Tree& tree, int key) {
  const int row = tree.selected();
  if (row < 0 || (key != Qt::Key_Right && key != Qt::Key_Left)) return false;
  if (tree.hasChildren(row) && tree.isOpen(row) == (key == Qt::Key_Left)) user_.pick(tree, row);
  return true;
}

// The form's own keys come first (form_view); of what is left the list needs the ends.
void ListView::keyPressEvent(QKeyEvent* event) {
  const auto count = static_cast<int>(list_.rows().count());
  if (event->key() == Qt::Key_Home && count > 0) {
    user_.select(list_, 0);
  } else if (event->key() == Qt::Key_End && count > 0) {
    list_.reaches(-1);
    user_.select(list_, static_cast<int>(list_.rows().count()) - 1);
  } else if (auto* tree = dynamic_cast<ui::Tree*>(&list_); tree && steps(*tree, event->key())) {
    return;
  } else if (list_.takesSeveral() && (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))) {
    QTableView::keyPressEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace desktop
