#include "desktop/grid_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/field_edit.h"
#include "desktop/style.h"
#include "desktop/style_parts.h"
#include "desktop/theme.h"
#include "desktop/words.h"

namespace desktop {
namespace {

constexpr int kWide = 28;     // columns from this many characters on share the room that is left
constexpr int kWidest = 40;   // what a column asks for at most
constexpr int kNotch = 120;   // of a mouse wheel
constexpr int kPadding = 6;   // between a cell's border and its text
constexpr int kBetween = 12;  // blocks beside each other
constexpr int kTick = 16;
constexpr int kTall = 15;  // rows of a block, beyond which they lie closer

int widthOf(const ui::GridCells& column) {
  const ui::Control& cell = column.cell(1);
  if (const auto* field = dynamic_cast<const ui::Field*>(&cell)) return field->mask().width();
  if (const auto* label = dynamic_cast<const ui::Label*>(&cell)) return label->width();
  return 3;
}

Qt::Alignment sideOf(const ui::Control& cell) {
  if (dynamic_cast<const ui::Check*>(&cell)) return Qt::AlignHCenter;
  const auto* field = dynamic_cast<const ui::Field*>(&cell);
  return field && field->mask().alignsRight() ? Qt::AlignRight : Qt::AlignLeft;
}

}  // namespace

GridView::GridView(ui::Grid& grid, ui::User& user, QWidget* parent)
    : QWidget(parent), grid_(grid), user_(user) {
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  for (const ui::GridCells* column : grid.columns()) {
    auto* field = dynamic_cast<ui::Field*>(&column->cell(1));
    if (!field) continue;
    editor_ = new FieldEdit(*field, user, this);
    editor_->setProperty(kCell, true);
    editor_->setTextMargins(2, 0, 2, 0);
    editor_->hide();
    break;
  }
  measure();
}

int GridView::blockRows() const { return (grid_.rows() + grid_.blocks() - 1) / std::max(grid_.blocks(), 1); }
int GridView::blockWidth() const {
  return (width() - kBetween * (grid_.blocks() - 1)) / std::max(grid_.blocks(), 1);
}
// Tall grids lie closer, so that a page of twenty lines is seen whole.
int GridView::rowHeight() const { return fontMetrics().height() + (blockRows() > kTall ? 2 : 9); }

// Lines whose first column is a label number themselves.
int GridView::numberWidth() const {
  if (dynamic_cast<const ui::Label*>(&grid_.columns().front()->cell(1))) return 0;
  return fontMetrics().horizontalAdvance("000") + 2 * kPadding;
}

int GridView::natural(const ui::GridCells& column) const {
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  const int head = QFontMetrics(bold).horizontalAdvance(text(column.caption()));
  const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * std::min(widthOf(column), kWidest);
  return std::max(head, width) + 2 * kPadding + 4;
}

QSize GridView::sizeHint() const {
  int width = numberWidth() + 1;
  for (const ui::GridCells* column : grid_.columns()) width += natural(*column);
  return {width * grid_.blocks() + kBetween * (grid_.blocks() - 1), rowHeight() * (blockRows() + 1) + 2};
}

void GridView::measure() {
  left_.clear();
  const auto& columns = grid_.columns();
  const auto isWide = [](const ui::GridCells* column) { return widthOf(*column) >= kWide; };
  const int asked = (sizeHint().width() - kBetween * (grid_.blocks() - 1)) / std::max(grid_.blocks(), 1);
  int room = std::max(0, blockWidth() - asked);
  const bool none = std::none_of(columns.begin(), columns.end(), isWide);  // then all of them share it
  auto sharing =
      static_cast<int>(none ? columns.size() : std::count_if(columns.begin(), columns.end(), isWide));
  int at = numberWidth();
  for (const ui::GridCells* column : columns) {
    left_.push_back(at);
    at += natural(*column);
    if (!none && !isWide(column)) continue;
    const int share = room / std::max(sharing--, 1);
    at += share;
    room -= share;
  }
  left_.push_back(at);
}

QRect GridView::cellRect(int row, std::size_t column) const {
  const int block = row > 0 ? (row - 1) / blockRows() : 0,
            inBlock = row > 0 ? (row - 1) % blockRows() + 1 : 0;
  const int x = block * (blockWidth() + kBetween);
  return {x + left_[column], 1 + inBlock * rowHeight(), left_[column + 1] - left_[column], rowHeight()};
}

QRect GridView::rectOf(const ui::Control& control) const {
  const ui::Cell cell = ui::cellOf(control);
  const auto& columns = grid_.columns();
  const auto at = std::find(columns.begin(), columns.end(), cell.column);
  return at == columns.end() ? rect() : cellRect(cell.row, static_cast<std::size_t>(at - columns.begin()));
}

ui::Control* GridView::entered() const {
  ui::Control* focused = grid_.form().focused();
  return focused && focused != &grid_ && &focused->placed() == &grid_ ? focused : nullptr;
}

QWidget& GridView::enter(ui::Control& cell) {
  update();
  auto* field = dynamic_cast<ui::Field*>(&cell);
  if (!field) {
    if (editor_) editor_->hide();
    return *this;
  }
  editor_->showField(*field);
  editor_->setGeometry(rectOf(cell).adjusted(-1, -1, 0, 0));
  editor_->setAccessibleName(text(cell.name()));
  editor_->show();
  return *editor_;
}

void GridView::leave() {
  if (editor_) editor_->hide();
  update();
}

void GridView::refresh(const ui::Control& cell) {
  if (editor_ && &cell == &editor_->field()) editor_->pull();
  update(&cell == &grid_ ? rect() : rectOf(cell));
}

void GridView::paintHead(QPainter& painter, int block) const {
  painter.save();
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  painter.setFont(bold);
  const int x = block * (blockWidth() + kBetween);
  painter.fillRect(x, 0, left_.back(), rowHeight() + 1, tokens().title);
  painter.setPen(tokens().titleText);
  for (std::size_t i = 0; i < grid_.columns().size(); ++i) {
    const ui::GridCells& column = *grid_.columns()[i];
    painter.drawText(cellRect(0, i).translated(x, 0).adjusted(kPadding, 0, -kPadding, 0),
                     sideOf(column.cell(1)) | Qt::AlignVCenter, text(column.caption()));
  }
  painter.restore();
}

void GridView::paintNumber(QPainter& painter, int row) const {
  if (left_.front() == 0) return;
  const QRect first = cellRect(row, 0);
  const QRect number(first.left() - left_.front(), first.top(), left_.front(), first.height());
  painter.fillRect(number, tokens().title);
  painter.setPen(tokens().titleText);
  painter.drawText(number.adjusted(0, 0, -kPadding, 0), Qt::AlignRight | Qt::AlignVCenter,
                   QString::number(grid_.line(row)));
}

void GridView::paintTick(QPainter& painter, const ui::Check& check, const QRect& rect) const {
  QStyleOption mark;
  mark.rect = QRect(0, 0, kTick, kTick);
  mark.rect.moveCenter(rect.center());
  mark.state = check.on() ? QStyle::State_On : QStyle::State_Off;
  mark.state.setFlag(QStyle::State_Enabled, check.enabled());
  mark.state.setFlag(QStyle::State_HasFocus, hasFocus() && entered() == &check);
  parts::checkMark(painter, mark);
}

void GridView::paintCell(QPainter& painter, const ui::Control& cell, const QRect& rect) const {
  const auto* label = dynamic_cast<const ui::Label*>(&cell);
  const bool open = cell.enabled() && cell.visible() && !label;
  painter.fillRect(rect, open ? tokens().field : tokens().disabled);
  if (!cell.visible()) return;
  if (const auto* check = dynamic_cast<const ui::Check*>(&cell)) return paintTick(painter, *check, rect);
  const auto* field = dynamic_cast<const ui::Field*>(&cell);
  painter.setPen(open || label ? tokens().text : tokens().soft);
  const QRect inner = rect.adjusted(kPadding, 0, -kPadding, 0);
  const QString words = text(field ? field->shown() : label->text());
  painter.drawText(inner, sideOf(cell) | Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(words, Qt::ElideRight, inner.width()));
}

void GridView::paintBlock(QPainter& painter, int block) const {
  const int first = block * blockRows() + 1, last = std::min(first + blockRows() - 1, grid_.rows());
  const int x = block * (blockWidth() + kBetween), bottom = 1 + rowHeight() * (last - first + 2);
  paintHead(painter, block);
  for (int row = first; row <= last; ++row) {
    paintNumber(painter, row);
    for (std::size_t i = 0; i < grid_.columns().size(); ++i)
      paintCell(painter, grid_.columns()[i]->cell(row), cellRect(row, i));
  }
  painter.setPen(tokens().line);
  for (int row = first; row <= last; ++row) {
    const int y = cellRect(row, 0).top() - 1;
    painter.drawLine(x, y, x + left_.back() - 1, y);
  }
  for (const int edge : left_) painter.drawLine(x + edge - 1, 0, x + edge - 1, bottom - 1);
  painter.drawRect(x, 0, left_.back() - 1, bottom - 1);
}

void GridView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (int block = 0; block < grid_.blocks(); ++block) paintBlock(painter, block);
}

void GridView::resizeEvent(QResizeEvent*) {
  measure();
  if (editor_ && !editor_->isHidden()) editor_->setGeometry(rectOf(editor_->field()).adjusted(-1, -1, 0, 0));
}

void GridView::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  for (const ui::GridCells* column : grid_.columns())
    for (int row = 1; row <= grid_.rows(); ++row) {
      ui::Control& cell = column->cell(row);
      if (!rectOf(cell).contains(at) || !cell.reachable()) continue;
      if (auto* check = dynamic_cast<ui::Check*>(&cell)) return void(user_.check(*check, !check->on()));
      if (!user_.go(cell) || !editor_ || &editor_->field() != &cell) return;
      // The click goes on into the editor that now stands there: it puts the cursor.
      QMouseEvent press(QEvent::MouseButtonPress, editor_->mapFrom(this, event->position()),
                        event->globalPosition(), event->button(), event->buttons(), event->modifiers());
      QApplication::sendEvent(editor_, &press);
      return;
    }
}

// Turns the pages, a notch at a time.
void GridView::wheelEvent(QWheelEvent* event) {
  if (grid_.pages() < 2) return event->ignore();
  wheel_ += event->angleDelta().y();
  if (std::abs(wheel_) < kNotch) return;
  user_.turn(grid_, grid_.page() + (std::exchange(wheel_, 0) > 0 ? -1 : 1));
}

}  // namespace desktop
