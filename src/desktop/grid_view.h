// A grid of cells: painted as a table, with one line edit that stands over the field that is being entered. A
// form with a hundred cells so opens as fast as one with ten fields.
#pragma once

#include <QWidget>
#include <vector>

#include "ui/user.h"

namespace desktop {

class FieldEdit;

class GridView : public QWidget {
 public:
  GridView(ui::Grid& grid, ui::User& user, QWidget* parent = nullptr);

  // The widget that takes the keyboard while `cell`, which lies in this grid, is entered: the editor over a
  // field, the grid itself for a box to tick.
  QWidget& enter(ui::Control& cell);
  void leave();  // no cell is entered any more
  void refresh(const ui::Control& cell);
  FieldEdit* editor() const { return editor_; }  // null: the grid has no fields
  ui::Control* entered() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void measure();
  int blockRows() const;
  int blockWidth() const;
  int rowHeight() const;
  int numberWidth() const;
  int natural(const ui::GridCells& column) const;
  QRect cellRect(int row, std::size_t column) const;  // row 0: the head of the first block
  QRect rectOf(const ui::Control& cell) const;
  void paintBlock(QPainter& painter, int block) const;
  void paintHead(QPainter& painter, int block) const;
  void paintNumber(QPainter& painter, int row) const;
  void paintCell(QPainter& painter, const ui::Control& cell, const QRect& rect) const;
  void paintTick(QPainter& painter, const ui::Check& check, const QRect& rect) const;

  ui::Grid& grid_;
  ui::User& user_;
  FieldEdit* editor_ = nullptr;
  std::vector<int> left_;  // of each column of a block; the last entry is its right edge
  int wheel_ = 0;
};

}  // namespace desktop
