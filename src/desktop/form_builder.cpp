#include "desktop/form_builder.h"

#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <algorithm>
#include <utility>

#include "common/text.h"
#include "desktop/chart_view.h"
#include "desktop/field_edit.h"
#include "desktop/form_parts.h"
#include "desktop/form_view.h"
#include "desktop/grid_view.h"
#include "desktop/list_view.h"
#include "desktop/memo_edit.h"
#include "desktop/style.h"
#include "desktop/words.h"

namespace desktop {
namespace {

using Kind = ui::Layout::Kind;

constexpr int kWide = 30;          // fields from this many characters on take the width of the row
constexpr int kNumberWidth = 18;   // labels up to this width show figures
constexpr int kOptionsAcross = 5;  // options of a choice beside each other

// Layouts name controls as they stand in the form, which are never constant there.
ui::Control& controlIn(const ui::Layout& layout) { return const_cast<ui::Control&>(*layout.control); }

template <class Box>
Box* plain(QWidget* parent, int spacing) {
  auto* box = new Box(parent);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(spacing);
  return box;
}

bool tall(const ui::Layout& part) {
  return part.kind == Kind::control &&
         (dynamic_cast<const ui::List*>(part.control) || dynamic_cast<const ui::Grid*>(part.control) ||
          dynamic_cast<const ui::Memo*>(part.control) || dynamic_cast<const ui::Chart*>(part.control));
}

// Whether it uses what height is left over.
bool grows(const ui::Layout& part) {
  if (part.kind == Kind::space) return true;
  if (part.kind == Kind::control)
    return dynamic_cast<const ui::List*>(part.control) || dynamic_cast<const ui::Memo*>(part.control) ||
           dynamic_cast<const ui::Chart*>(part.control);
  return std::any_of(part.parts.begin(), part.parts.end(), grows);
}

bool bearsItsCaption(const ui::Control& control) {
  return dynamic_cast<const ui::Check*>(&control) || dynamic_cast<const ui::Button*>(&control);
}

// A single control in a column is a row of its own.
bool isRow(const ui::Layout& part) {
  return part.kind == Kind::row || (part.kind == Kind::control && !tall(part));
}

std::vector<ui::Layout> partsOf(const ui::Layout& part) {
  return part.kind == Kind::row ? part.parts : std::vector<ui::Layout>{part};
}

}  // namespace

int FormBuilder::chars(int count) const {
  return view_.fontMetrics().horizontalAdvance(QLatin1Char('0')) * count + 18;
}

QWidget* FormBuilder::build(const ui::Layout& layout) {
  switch (layout.kind) {
    case Kind::control: {
      if (tall(layout)) return stack({layout});
      return make(controlIn(layout), nullptr);
    }
    case Kind::group:
      return makeGroup(layout);
    case Kind::row:
      return stack({layout});
    case Kind::side:
      return makeSide(layout);
    case Kind::tabs:
      return makeTabs(layout);
    case Kind::buttons:
      return makeButtons(layout);
    case Kind::space: {
      auto* gap = new QWidget;
      gap->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
      return gap;
    }
    default:
      return stack(layout.parts);
  }
}

// One below the other; rows that follow each other share a grid, so that their captions align.
QWidget* FormBuilder::stack(const std::vector<ui::Layout>& parts) {
  auto* box = new QWidget;
  auto* column = plain<QVBoxLayout>(box, 10);
  const bool loose = std::none_of(parts.begin(), parts.end(), grows);
  for (std::size_t i = 0; i < parts.size();) {
    if (!isRow(parts[i])) {
      // Room to spare stands above the buttons, not inside the groups.
      if (parts[i].kind == Kind::buttons && loose) column->addStretch(1);
      if (tall(parts[i])) {
        auto& control = controlIn(parts[i]);
        QLabel* above = control.caption().empty() ? nullptr : captionLabel(control.caption());
        if (above) column->addWidget(above);
        column->addWidget(make(control, above), grows(parts[i]) ? 1 : 0);
      } else {
        column->addWidget(build(parts[i]), grows(parts[i]) ? 1 : 0);
      }
      ++i;
      continue;
    }
    std::size_t end = i, columns = 0;
    for (; end < parts.size() && isRow(parts[end]); ++end)
      columns = std::max(columns, partsOf(parts[end]).size());
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(7);
    for (int line = 0; i < end; ++i) addRow(*grid, line++, partsOf(parts[i]), static_cast<int>(columns));
    grid->setColumnStretch(2 * static_cast<int>(columns), 1);
    column->addLayout(grid);
  }
  return box;
}

void FormBuilder::addRow(QGridLayout& grid, int line, const std::vector<ui::Layout>& parts, int columns) {
  const int count = static_cast<int>(parts.size());
  for (int i = 0; i < count; ++i) {
    const ui::Layout& part = parts[static_cast<std::size_t>(i)];
    const bool captioned = part.control && part.kind == Kind::control && !bearsItsCaption(*part.control) &&
                           !part.control->caption().empty();
    QLabel* caption = captioned ? captionLabel(part.control->caption()) : nullptr;
    QWidget* widget = part.kind == Kind::control ? make(controlIn(part), caption) : build(part);
    if (caption) {
      if (i > 0) {
        caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        caption->setContentsMargins(10, 0, 0, 0);
      }
      grid.addWidget(caption, line, 2 * i, tall(part) ? Qt::AlignTop : Qt::Alignment());
    }
    const bool button = part.control && dynamic_cast<const ui::Button*>(part.control);
    const bool last = i + 1 == count, narrow = button || widget->maximumWidth() < 4000;
    // A field without a caption continues the one above it.
    const bool aligned = captioned || (part.control && dynamic_cast<const ui::Field*>(part.control));
    const int from = aligned ? 2 * i + 1 : 2 * i;
    const int span = last ? 2 * columns + 1 - from : 2 * i + 2 - from;
    grid.addWidget(widget, line, from, 1, span, narrow ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment());
  }
}

QWidget* FormBuilder::makeGroup(const ui::Layout& layout) {
  auto* card = new GroupCard(text(layout.title));
  auto* column = plain<QVBoxLayout>(nullptr, 0);
  card->setLayout(column);
  const bool stretches = std::any_of(layout.parts.begin(), layout.parts.end(), grows);
  column->addWidget(stack(layout.parts), stretches ? 1 : 0);
  if (!stretches) column->addStretch();
  return card;
}

QWidget* FormBuilder::makeSide(const ui::Layout& layout) {
  auto* box = new QWidget;
  auto* line = plain<QHBoxLayout>(box, 10);
  for (const ui::Layout& part : layout.parts) line->addWidget(build(part), 1);
  return box;
}

QWidget* FormBuilder::makeButtons(const ui::Layout& layout) {
  auto* box = new QWidget;
  auto* line = plain<QHBoxLayout>(box, 8);
  line->addStretch();
  for (const ui::Layout& part : layout.parts) line->addWidget(build(part));
  return box;
}

QWidget* FormBuilder::makeTabs(const ui::Layout& layout) {
  auto& tabs = static_cast<ui::Tabs&>(controlIn(layout));
  auto* widget = new QTabWidget;
  widget->setFocusPolicy(Qt::NoFocus);
  widget->tabBar()->setFocusPolicy(Qt::NoFocus);
  widget->setUsesScrollButtons(false);  // all pages in sight, or the form asks for more width
  for (std::size_t i = 0; i < layout.parts.size(); ++i) {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(build(layout.parts[i]), grows(layout.parts[i]) ? 1 : 0);
    if (!grows(layout.parts[i])) column->addStretch();
    widget->addTab(page, text(tabs.pages()[i]));
  }
  // The widget turns its page by itself; the form's answer comes after and may turn it back.
  QObject::connect(widget->tabBar(), &QTabBar::tabBarClicked, &view_, [view = &view_, &tabs](int page) {
    QMetaObject::invokeMethod(
        view,
        [view, &tabs, page] {
          view->user().page(tabs, page);
          view->refresh(tabs);
        },
        Qt::QueuedConnection);
  });
  view_.bind(tabs, widget, [&tabs, widget] { widget->setCurrentIndex(tabs.current()); });
  return widget;
}

QWidget* FormBuilder::make(ui::Control& control, QWidget* caption) {
  if (auto* field = dynamic_cast<ui::Field*>(&control)) return makeField(*field, caption);
  if (auto* grid = dynamic_cast<ui::Grid*>(&control)) return makeGrid(*grid);
  if (auto* list = dynamic_cast<ui::List*>(&control)) return makeList(*list, caption);
  if (auto* label = dynamic_cast<ui::Label*>(&control)) return makeLabel(*label, caption);
  if (auto* check = dynamic_cast<ui::Check*>(&control)) return makeCheck(*check);
  if (auto* button = dynamic_cast<ui::Button*>(&control)) return makeButton(*button);
  if (auto* memo = dynamic_cast<ui::Memo*>(&control)) return makeMemo(*memo, caption);
  if (auto* spin = dynamic_cast<ui::Spin*>(&control)) return makeSpin(*spin, caption);
  if (auto* chart = dynamic_cast<ui::Chart*>(&control)) return makeChart(*chart, caption);
  auto& choice = dynamic_cast<ui::Choice&>(control);
  return choice.look() == ui::Choice::Look::combo ? makeCombo(choice, caption) : makeOptions(choice, caption);
}

QWidget* FormBuilder::makeField(ui::Field& field, QWidget* caption) {
  const int width = field.mask().width();
  auto* edit = new FieldEdit(field, view_.user());
  if (width < kWide) {
    edit->setFixedWidth(chars(width + 1));
  } else {
    edit->setMinimumWidth(chars(std::min(width, 44)));
    edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }
  view_.bind(
      field, edit, [edit] { edit->pull(); }, caption);
  return edit;
}

QWidget* FormBuilder::makeMemo(ui::Memo& memo, QWidget* caption) {
  auto* edit = new MemoEdit(memo, view_.user());
  view_.bind(
      memo, edit, [edit] { edit->pull(); }, caption);
  edit->setFocusProxy(&edit->editor());
  view_.own(&edit->editor(), memo);
  view_.own(edit->editor().viewport(), memo);
  return edit;
}

QWidget* FormBuilder::makeLabel(ui::Label& label, QWidget* caption) {
  if (label.width() == 0) {
    auto* words = new QLabel;
    words->setTextFormat(Qt::PlainText);
    view_.bind(
        label, words, [&label, words] { words->setText(text(label.text())); }, caption);
    return words;
  }
  auto* value = new ValueLabel;
  value->setTextFormat(Qt::PlainText);
  value->setContentsMargins(7, 0, 7, 0);
  value->setFixedHeight(26);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  value->setFocusPolicy(Qt::NoFocus);
  if (label.width() < kWide)
    value->setFixedWidth(chars(label.width()));
  else
    value->setMinimumWidth(chars(std::min(label.width(), 44)));
  if (label.width() <= kNumberWidth) {
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = value->font();
    bold.setWeight(QFont::DemiBold);
    value->setFont(bold);
  }
  view_.bind(
      label, value, [&label, value] { value->setText(text(label.text())); }, caption);
  return value;
}

QWidget* FormBuilder::makeButton(ui::Button& button) {
  auto* push = new QPushButton(text(button.caption()));
  push->setFocusPolicy(Qt::TabFocus);
  push->setAutoDefault(false);
  push->setProperty(kMainButton, button.role() == ui::Button::Role::main);
  QObject::connect(push, &QPushButton::clicked, &view_,
                   [view = &view_, &button] { view->user().press(button); });
  view_.bind(button, push, [&button, push] { push->setText(text(button.caption())); });
  return push;
}

QWidget* FormBuilder::makeCheck(ui::Check& check) {
  auto* box = new QCheckBox(text(check.caption()));
  box->setFocusPolicy(Qt::TabFocus);
  QObject::connect(box, &QCheckBox::clicked, &view_, [view = &view_, &check](bool on) {
    view->user().check(check, on);
    view->refresh(check);
  });
  view_.bind(check, box, [&check, box] {
    box->setText(text(check.caption()));
    box->setChecked(check.on());
  });
  return box;
}

QWidget* FormBuilder::makeOptions(ui::Choice& choice, QWidget* caption) {
  auto* box = new QWidget;
  auto* grid = plain<QGridLayout>(box, 6);
  grid->setHorizontalSpacing(16);
  auto* group = new QButtonGroup(box);
  const int count = static_cast<int>(choice.items().size());
  for (int i = 0; i < count; ++i) {
    auto* button = new QRadioButton(text(choice.items()[static_cast<std::size_t>(i)]));
    button->setFocusPolicy(Qt::TabFocus);
    group->addButton(button, i);
    view_.own(button, choice);
    grid->addWidget(button, i / kOptionsAcross, i % kOptionsAcross);
  }
  grid->setColumnStretch(kOptionsAcross, 1);
  QObject::connect(group, &QButtonGroup::idClicked, &view_, [view = &view_, &choice](int id) {
    view->user().choose(choice, id);
    view->refresh(choice);
  });
  view_.bind(
      choice, box,
      [&choice, box, group] {
        group->setExclusive(false);
        for (QAbstractButton* button : group->buttons())
          button->setChecked(group->id(button) == choice.index());
        group->setExclusive(true);
        QAbstractButton* chosen = group->button(std::max(choice.index(), 0));
        const bool focused = box->isAncestorOf(QApplication::focusWidget());
        box->setFocusProxy(chosen);
        if (focused && chosen) chosen->setFocus(Qt::OtherFocusReason);
      },
      caption);
  return box;
}

QWidget* FormBuilder::makeCombo(ui::Choice& choice, QWidget* caption) {
  auto* combo = new Combo;
  combo->setFocusPolicy(Qt::TabFocus);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  combo->setMinimumWidth(chars(8));
  combo->setMaxVisibleItems(18);
  if (choice.onDoubleClick)
    combo->onDoubleClick = [view = &view_, &choice] { view->user().doubleClick(choice); };
  QObject::connect(combo, &QComboBox::activated, &view_, [view = &view_, &choice](int index) {
    view->user().choose(choice, index);
    view->refresh(choice);
  });
  view_.bind(
      choice, combo,
      [&choice, combo, shown = std::vector<std::string>()]() mutable {
        if (shown != choice.items()) {
          shown = choice.items();
          combo->clear();
          for (const std::string& item : shown) combo->addItem(text(item));
        }
        combo->setCurrentIndex(choice.index());
      },
      caption);
  combo->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  combo->setMaximumWidth(560);
  return combo;
}

QWidget* FormBuilder::makeSpin(ui::Spin& spin, QWidget* caption) {
  auto* field = new SpinField;
  field->setFocusPolicy(Qt::TabFocus);
  field->setKeyboardTracking(false);
  field->setMaximumWidth(130);
  QObject::connect(field, &QSpinBox::valueChanged, &view_, [view = &view_, &spin](int value) {
    if (value == spin.value()) return;
    view->user().spin(spin, value);
    view->refresh(spin);
  });
  view_.bind(
      spin, field,
      [&spin, field] {
        const QSignalBlocker quiet(field);
        field->setRange(spin.minimum(), spin.maximum());
        field->setValue(spin.value());
      },
      caption);
  return field;
}

QWidget* FormBuilder::makeList(ui::List& list, QWidget* caption) {
  auto* view = new ListView(list, view_.user());
  view->setMinimumSize(std::min(view->sizeHint().width(), 700), 150);
  view_.bind(
      list, view, [view] { view->pull(); }, caption);
  view_.own(view->viewport(), list);
  return view;
}

QWidget* FormBuilder::makeChart(ui::Chart& chart, QWidget* caption) {
  auto* view = new ChartView(chart);
  view_.bind(
      chart, view, [view] { view->update(); }, caption);
  return view;
}

QWidget* FormBuilder::makeGrid(ui::Grid& grid) {
  auto* outer = new QWidget;
  auto* column = plain<QVBoxLayout>(outer, 6);
  auto* table = new GridView(grid, view_.user());
  column->addWidget(table);
  for (const ui::GridCells* from : grid.columns())
    for (int row = 1; row <= grid.rows(); ++row) {
      const ui::Control& cell = from->cell(row);
      view_.bind(cell, table, [table, &cell] { table->refresh(cell); });
    }
  if (table->editor()) view_.own(table->editor(), grid);
  if (grid.pages() < 2) {
    view_.bind(grid, outer, [table, &grid] { table->refresh(grid); });
    return outer;
  }
  auto* foot = plain<QHBoxLayout>(nullptr, 8);
  auto* pages = new SpinField;
  pages->setRange(1, grid.pages());
  pages->setFocusPolicy(Qt::NoFocus);
  pages->setPrefix("Pagina ");
  pages->setSuffix(QString(" di %1").arg(grid.pages()));
  QObject::connect(pages, &QSpinBox::valueChanged, &view_, [view = &view_, &grid](int page) {
    if (page == grid.page() + 1) return;
    view->user().turn(grid, page - 1);
    view->refresh(grid);
  });
  foot->addWidget(captionLabel("PagSu / PagGiù: pagina precedente e seguente"));
  foot->addStretch();
  foot->addWidget(pages);
  column->addLayout(foot);
  view_.bind(grid, outer, [table, &grid, pages] {
    table->refresh(grid);
    pages->setValue(grid.page() + 1);
  });
  return outer;
}

}  // namespace desktop
