#include "desktop/form_window.h"

#include <QAction>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QFontMetrics>
#include <QScrollArea>
#include <algorithm>

#include "desktop/form_view.h"
#include "desktop/guide.h"
#include "desktop/key_bar.h"
#include "desktop/words.h"

namespace desktop {

namespace {

// Tells the layouts, from the innermost on, what a form's load has filled in: while nothing is visible nobody
// else does.
void settle(QWidget& view) {
  const auto boxes = view.findChildren<QWidget*>();
  std::for_each(boxes.rbegin(), boxes.rend(), [](const QWidget* box) {
    if (!box->layout()) return;
    box->layout()->invalidate();
    box->layout()->activate();
  });
}

}  // namespace

FormWindow::FormWindow(std::unique_ptr<ui::Form> form)
    : QMdiSubWindow(nullptr, Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowMinMaxButtonsHint |
                                 Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint),
      form_(std::move(form)),
      view_(new FormView(*form_)) {
  setWindowTitle(text(form_->title()));
  setWindowIcon(QIcon());
  // Its bars appear only where the window is smaller than the form.
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(view_);
  setWidget(scroll);
}

FormWindow::~FormWindow() { delete widget(); }

// A title is shown whole beside its buttons.
QSize FormWindow::wanted() const {
  constexpr int kButtons = 130;
  settle(*view_);
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  const int title = QFontMetrics(bold).horizontalAdvance(windowTitle()) + kButtons;
  return (view_->sizeHint() + QSize(4, 34)).expandedTo(QSize(title, 0));
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // a form that closes takes its window away by itself
  if (form_->isOpen()) view_->user().close();
}

ModalForm::ModalForm(ui::Form& form, QWidget* parent)
    : QDialog(parent), form_(form), view_(new FormView(form)), keys_(new KeyBar) {
  setWindowTitle(text(form.title()));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(view_, 1);
  column->addWidget(keys_);
  view_->onClosed = [this] { accept(); };
  view_->onFocus = [this] { keys_->showKeysOf(view_); };
  // The guide of the frame would stand behind this window, where no key reaches it.
  const auto help = [this] { showGuide(this); };
  keys_->onHelp = help;
  auto* key = new QAction(this);
  key->setShortcut(Qt::Key_F1);
  connect(key, &QAction::triggered, this, help);
  addAction(key);
}

void ModalForm::reject() {
  if (form_.isOpen()) view_->user().close();
}

}  // namespace desktop
