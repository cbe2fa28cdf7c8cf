// The window of a sheet: its cells in a table, which can be copied, sorted, searched and saved.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "desktop/key_bar.h"
#include "ui/sheet.h"

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;

namespace desktop {

class SheetView : public QWidget {
 public:
  explicit SheetView(std::shared_ptr<const ui::Sheet> sheet, QWidget* parent = nullptr);

  QString selectedText() const;  // the cells marked, rows by line feeds, columns by tabs
  bool find(const QString& words);
  void sortBy(int column, bool ascending);
  bool saveAs(const QString& path);  // .xlsx or, by its ending, .csv
  std::vector<BarKey> keys();
  QSize sizeHint() const override { return {760, 520}; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Model;
  void save();
  void copy();

  std::shared_ptr<const ui::Sheet> sheet_;
  QSortFilterProxyModel* sorted_;
  QTableView* table_;
  QLineEdit* search_;
  QLabel* told_;
};

}  // namespace desktop
