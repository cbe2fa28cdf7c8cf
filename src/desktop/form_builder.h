// The widgets of a form: its layout as boxes and rows, each control by its kind.
#pragma once

#include "ui/chart.h"
#include "ui/form.h"

class QGridLayout;
class QWidget;

namespace desktop {

class FormView;

class FormBuilder {
 public:
  explicit FormBuilder(FormView& view) : view_(view) {}
  QWidget* build(const ui::Layout& layout);

 private:
  QWidget* stack(const std::vector<ui::Layout>& parts);
  void addRow(QGridLayout& grid, int line, const std::vector<ui::Layout>& parts, int columns);
  QWidget* makeGroup(const ui::Layout& layout);
  QWidget* makeSide(const ui::Layout& layout);
  QWidget* makeButtons(const ui::Layout& layout);
  QWidget* makeTabs(const ui::Layout& layout);
  QWidget* make(ui::Control& control, QWidget* caption);
  QWidget* makeField(ui::Field& field, QWidget* caption);
  QWidget* makeMemo(ui::Memo& memo, QWidget* caption);
  QWidget* makeLabel(ui::Label& label, QWidget* caption);
  QWidget* makeButton(ui::Button& button);
  QWidget* makeCheck(ui::Check& check);
  QWidget* makeOptions(ui::Choice& choice, QWidget* caption);
  QWidget* makeCombo(ui::Choice& choice, QWidget* caption);
  QWidget* makeSpin(ui::Spin& spin, QWidget* caption);
  QWidget* makeList(ui::List& list, QWidget* caption);
  QWidget* makeGrid(ui::Grid& grid);
  QWidget* makeChart(ui::Chart& chart, QWidget* caption);
  int chars(int count) const;

  FormView& view_;
};

}  // namespace desktop
