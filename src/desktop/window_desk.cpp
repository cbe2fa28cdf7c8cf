#include "desktop/window_desk.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTimer>
#include <algorithm>

#include "desktop/area.h"
#include "desktop/box.h"
#include "desktop/focus_back.h"
#include "desktop/form_view.h"
#include "desktop/form_window.h"
#include "desktop/key_bar.h"
#include "desktop/main_window.h"
#include "desktop/report_paint.h"
#include "desktop/report_view.h"
#include "desktop/sheet_view.h"
#include "desktop/words.h"
#include "ui/report.h"
#include "ui/user.h"

namespace desktop {
namespace {

constexpr int kFrameTime = 40;  // milliseconds between two paintings while the program is busy

// The pointer of the hourglass is not for a box that asks something.
class PointerAside {
 public:
  explicit PointerAside(int busy) : busy_(busy) {
    if (busy_ > 0) QApplication::restoreOverrideCursor();
  }
  ~PointerAside() {
    if (busy_ > 0) QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  PointerAside(const PointerAside&) = delete;
  PointerAside& operator=(const PointerAside&) = delete;

 private:
  int busy_;
};

}  // namespace

// Takes the keys and the clicks of the program for as long as it lives, and remembers an Escape among them.
class StopKey : public QObject {
 public:
  StopKey() { qApp->installEventFilter(this); }
  bool struck = false;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        struck = struck || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        return true;
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::Shortcut:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::Close:
        return true;
      default:
        return false;
    }
  }
};

// While it lives a handler of a form waits in an event loop of its own, and closed forms stay in memory.
class WindowDesk::Nested {
 public:
  explicit Nested(WindowDesk& desk) : desk_(desk), focus_(desk.window_.front()), pointer_(desk.busy_) {
    ++desk_.depth_;
  }
  ~Nested() {
    if (--desk_.depth_ == 0 && !desk_.closed_.empty())
      QTimer::singleShot(0, &desk_.window_, [desk = &desk_] { desk->bury(); });
  }
  Nested(const Nested&) = delete;
  Nested& operator=(const Nested&) = delete;

 private:
  WindowDesk& desk_;
  FocusBack focus_;
  PointerAside pointer_;
};

WindowDesk::WindowDesk(MainWindow& window) : window_(window) {
  QObject::connect(&window.area(), &QMdiArea::subWindowActivated, &window, [this](QMdiSubWindow* active) {
    for (QMdiSubWindow* other : window_.area().subWindowList())
      if (auto* form = dynamic_cast<FormWindow*>(other); form && other != active)
        form->view().setInFront(false);
    auto* form = dynamic_cast<FormWindow*>(active);
    if (form) form->view().setInFront(true);
    auto* report = active ? dynamic_cast<ReportView*>(active->widget()) : nullptr;
    if (report) return window_.keys().show(report, report->keys());
    auto* sheet = active ? dynamic_cast<SheetView*>(active->widget()) : nullptr;
    if (sheet) return window_.keys().show(sheet, sheet->keys());
    window_.keys().showKeysOf(form ? &form->view() : nullptr);
  });
}

WindowDesk::~WindowDesk() { closeAll(); }

void WindowDesk::closeAll() {
  QObject::disconnect(&window_.area(), nullptr, &window_, nullptr);
  bury();
  for (QMdiSubWindow* window : window_.area().subWindowList()) delete window;
}

ui::Answer WindowDesk::show(const ui::Box& box) {
  const Nested nested(*this);
  return showBox(box, window_.front());
}

void WindowDesk::run(ui::Form& form) {
  const Nested nested(*this);
  ModalForm dialog(form, window_.front());
  modal_.emplace_back(&form, &dialog);
  if (ui::User(form).begin() && !ending_) dialog.exec();
  modal_.pop_back();
}

void WindowDesk::open(std::unique_ptr<ui::Form> form) {
  auto* window = new FormWindow(std::move(form));
  window->view().onClosed = [this, window] { formClosed(window); };
  window->view().onFocus = [this, window] {
    if (window_.area().activeSubWindow() == window) window_.keys().showKeysOf(&window->view());
  };
  // Loaded out of sight: what comes to the screen is the form as its load leaves it.
  window->view().setInFront(false);
  if (!ui::User(window->form()).begin()) return;
  window_.stand(*window, window->wanted(), text(window->form().name()));
}

std::vector<ui::Form*> WindowDesk::forms() const {
  std::vector<ui::Form*> forms;
  for (QMdiSubWindow* window : window_.area().subWindowList(QMdiArea::StackingOrder))
    if (auto* stands = dynamic_cast<FormWindow*>(window);
        stands && stands->form().isOpen() && !stands->isHidden())
      forms.push_back(&stands->form());
  for (const auto& [form, dialog] : modal_)
    if (form->isOpen()) forms.push_back(form);
  return forms;
}

void WindowDesk::bringToFront(ui::Form& form) {
  for (QMdiSubWindow* window : window_.area().subWindowList())
    if (auto* stands = dynamic_cast<FormWindow*>(window); stands && &stands->form() == &form) {
      if (stands->isMinimized()) stands->showNormal();
      window_.area().setActiveSubWindow(stands);
    }
}

// The window goes at once, the form where no handler of any form can be running in it.
void WindowDesk::formClosed(FormWindow* window) {
  window_.remember(*window, text(window->form().name()));
  closed_.push_back(window);
  window->hide();
  window_.area().removeSubWindow(window);
  QTimer::singleShot(0, &window_, [this] { bury(); });
  if (QMdiSubWindow* next = window_.area().currentSubWindow())
    window_.area().setActiveSubWindow(next);
  else
    window_.keys().showKeysOf(nullptr);
}

void WindowDesk::bury() {
  if (depth_ > 0) return;
  for (FormWindow* window : std::exchange(closed_, {})) delete window;
}

void WindowDesk::beep() { QApplication::beep(); }

void WindowDesk::status(int panel, std::string_view words) {
  window_.setPanel(panel, text(words));
  paintNow();
}

void WindowDesk::busy(bool on) {
  if (on) {
    ++busy_;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    return;
  }
  if (busy_ == 0) return;
  QApplication::restoreOverrideCursor();
  if (--busy_ > 0) return;
  stop_.reset();
  window_.showProgress(0, 0);
}

bool WindowDesk::progress(std::size_t done, std::size_t all) {
  if (busy_ > 0 && !stop_) stop_ = std::make_unique<StopKey>();
  window_.showProgress(done, all);
  paintNow();
  return !stop_ || !stop_->struck;
}

// A long operation runs in the only thread: the window is painted whenever it tells how far it is, without
// letting keys or clicks in, but for Escape where the operation can be stopped.
void WindowDesk::paintNow() {
  if (busy_ == 0 || (painted_.isValid() && painted_.elapsed() < kFrameTime)) return;
  ++depth_;
  QApplication::processEvents(stop_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  --depth_;
  painted_.start();
}

// In the frame, beside the forms; the frame remembers where under `name`.
void WindowDesk::stand(QWidget& content, const char* name) {
  auto* window =
      new QMdiSubWindow(nullptr, Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowMinMaxButtonsHint |
                                     Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWidget(&content);
  window->setWindowTitle(content.windowTitle());
  window_.stand(*window, QSize(900, 4000), name);
  content.setFocus(Qt::OtherFocusReason);
}

void WindowDesk::preview(std::shared_ptr<const ui::Report> report) {
  auto* view = new ReportView(std::move(report));
  view->onPrint = [this](const std::shared_ptr<const ui::Report>& shown) { print(shown); };
  stand(*view, "anteprima");
  view->setZoom(previewZoom);
}

void WindowDesk::sheet(std::shared_ptr<const ui::Sheet> sheet) {
  stand(*new SheetView(std::move(sheet)), "foglio");
}

bool WindowDesk::print(std::shared_ptr<const ui::Report> report) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    show({"Nessuna stampante è installata. Dall'anteprima è possibile salvare la stampa in un file PDF.",
          "Stampa", ui::Ask::ok, ui::Icon::information});
    return false;
  }
  report->finish();  // its pages are counted from here on
  QPrinter printer(QPrinter::HighResolution);
  if (printsAsk) {
    const Nested nested(*this);
    QPrintDialog dialog(&printer, window_.front());
    dialog.setMinMax(1, static_cast<int>(report->pages().size()));
    if (dialog.exec() != QDialog::Accepted) return false;
  }
  return printReport(*report, printer);
}

std::optional<std::string> WindowDesk::chooseFile(std::string_view title, std::string_view filter, bool save,
                                                  std::string_view directory) {
  const Nested nested(*this);
  // "Archivio(*.isd)|*.isd": here the patterns stand in the parentheses, in either case.
  QString patterns = text(filter);
  if (const auto bar = patterns.indexOf('|'); bar >= 0) {
    const QString pattern = patterns.mid(bar + 1), name = patterns.left(patterns.indexOf('('));
    patterns = name + " (" + pattern + ' ' + pattern.toUpper() + ')';
  }
  const QString path =
      save ? QFileDialog::getSaveFileName(window_.front(), text(title), text(directory), patterns)
           : QFileDialog::getOpenFileName(window_.front(), text(title), text(directory), patterns);
  if (path.isEmpty()) return {};
  return utf8(path);
}

// Where "Courier New" is missing its metric twin prints in its place, so it counts as that font.
std::vector<std::string> WindowDesk::printerFonts() const {
  std::vector<std::string> fonts;
  for (const QString& family : QFontDatabase::families())
    if (QFontDatabase::isFixedPitch(family)) fonts.push_back(utf8(family));
  const auto has = [&](const char* name) {
    return std::find(fonts.begin(), fonts.end(), name) != fonts.end();
  };
  if (has("Liberation Mono") && !has("Courier New")) fonts.emplace_back("Courier New");
  return fonts;
}

void WindowDesk::end() {
  ending_ = true;
  window_.leave();
  for (auto at = modal_.rbegin(); at != modal_.rend(); ++at) at->second->done(QDialog::Rejected);
  QMetaObject::invokeMethod(
      qApp, [] { QApplication::quit(); }, Qt::QueuedConnection);
}

void WindowDesk::frameChanged() { window_.frameChanged(); }

}  // namespace desktop
