#include "desktop/report_view.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/box.h"
#include "desktop/icons.h"
#include "desktop/report_sheet.h"
#include "desktop/theme.h"
#include "desktop/words.h"

namespace desktop {
namespace {

constexpr int kZooms[] = {50, 65, 80, 100, 125, 150, 200, 300};
constexpr int kAround = 18;  // the ground around the sheet, in pixels

class Ground : public QWidget {
 public:
  explicit Ground(QWidget* sheet) {
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(kAround, kAround, kAround, kAround);
    box->addWidget(sheet, 0, Qt::AlignHCenter | Qt::AlignTop);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Dark);
  }
};

}  // namespace

ReportView::ReportView(std::shared_ptr<const ui::Report> report, QWidget* parent)
    : QWidget(parent),
      report_(std::move(report)),
      sheet_(new ReportSheet(*report_)),
      scroll_(new QScrollArea) {
  setWindowTitle("Anteprima di stampa - " + text(report_->title()));
  setFocusPolicy(Qt::StrongFocus);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(8, 6, 8, 6);
  bar->setSpacing(3);
  buildBar(*bar);
  column->addLayout(bar);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidgetResizable(true);
  scroll_->setWidget(new Ground(sheet_));
  scroll_->viewport()->installEventFilter(this);
  column->addWidget(scroll_, 1);
  connect(page_, &QSpinBox::valueChanged, this, [this](int page) {
    sheet_->setPage(page - 1);
    scroll_->verticalScrollBar()->setValue(0);
  });
  while (report_->pages().size() < 2 && report_->grow()) continue;
  showPages();
  connect(&growing_, &QTimer::timeout, this, [this] { layOutSome(); });
  if (!report_->isWhole()) growing_.start(0);
  applyZoom();
}

// A long report is laid out between two keys: its first page shows at once. Not while an operation paints the
// window in its middle: the archives are its own.
void ReportView::layOutSome() {
  if (QApplication::overrideCursor()) return;
  constexpr int kSlice = 12;  // milliseconds
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < kSlice && report_->grow()) continue;
  if (report_->isWhole()) growing_.stop();
  showPages();
}

void ReportView::layOutRest() {
  if (report_->isWhole()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  report_->finish();
  QApplication::restoreOverrideCursor();
  growing_.stop();
  showPages();
}

void ReportView::showPages() {
  page_->setRange(1, pages());
  page_->setSuffix(QString(report_->isWhole() ? " di %1" : " di %1...").arg(pages()));
}

QToolButton* ReportView::addTool(QHBoxLayout& bar, const char* name, const QString& words, const QString& tip,
                                 std::function<void()> act) {
  auto* button = new QToolButton;
  button->setIcon(icon(name));
  button->setText(words);
  button->setToolTip(tip);
  button->setToolButtonStyle(words.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
  button->setFocusPolicy(Qt::NoFocus);
  connect(button, &QToolButton::clicked, this, std::move(act));
  bar.addWidget(button);
  return button;
}

void ReportView::buildBar(QHBoxLayout& bar) {
  addTool(bar, "print", "&Stampa", "Stampa (Ctrl+P)", [this] {
    if (onPrint) onPrint(report_);
  });
  addTool(bar, "pdf", "&PDF", "Salva in un file PDF", [this] { savePdf(); });
  addTool(bar, "copy", {}, "Copia le righe segnate, o la pagina (Ctrl+C)", [this] { copy(); });
  search_ = new QLineEdit;
  search_->setPlaceholderText("Cerca (Ctrl+F)");
  search_->setFixedWidth(170);
  search_->setFocusPolicy(Qt::ClickFocus);
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textEdited, this, [this] { told_->clear(); });
  bar.addSpacing(10);
  bar.addWidget(search_);
  addTool(bar, "search", {}, "Trova il prossimo (F3)", [this] { showFound(find(search_->text())); });
  told_ = new QLabel;
  told_->setForegroundRole(QPalette::PlaceholderText);
  bar.addWidget(told_);
  bar.addStretch();
  addTool(bar, "first", {}, "Prima pagina", [this] { setPage(1); });
  addTool(bar, "previous", {}, "Pagina precedente (PagSu)", [this] { setPage(page() - 1); });
  page_ = new QSpinBox;
  page_->setPrefix("Pagina ");
  page_->setFocusPolicy(Qt::ClickFocus);
  bar.addWidget(page_);
  addTool(bar, "next", {}, "Pagina seguente (PagGiù)", [this] { setPage(page() + 1); });
  addTool(bar, "last", {}, "Ultima pagina", [this] { turnToEnd(); });
  zoom_ = new QComboBox;
  zoom_->setFocusPolicy(Qt::NoFocus);
  zoom_->addItem("Larghezza", 0);
  for (const int percent : kZooms) zoom_->addItem(QString("%1%").arg(percent), percent);
  connect(zoom_, &QComboBox::activated, this, [this](int at) { setZoom(zoom_->itemData(at).toInt()); });
  bar.addWidget(zoom_);
}

std::vector<BarKey> ReportView::keys() {
  const auto key = [this](const char* name, const char* word, void (*press)(ReportView&)) {
    return BarKey{name, word, [at = QPointer<ReportView>(this), press] {
                    if (at) press(*at);
                  }};
  };
  return {key("Ctrl+F", "cerca", [](ReportView& view) { view.search_->setFocus(); }),
          key("F3", "trova il prossimo",
              [](ReportView& view) { view.showFound(view.find(view.search_->text())); }),
          key("PagSu", "pagina prima", [](ReportView& view) { view.turn(-1); }),
          key("PagGiù", "pagina dopo", [](ReportView& view) { view.turn(1); }),
          key("Ctrl+C", "copia", [](ReportView& view) { view.copy(); }),
          key("Ctrl+P", "stampa",
              [](ReportView& view) {
                if (view.onPrint) view.onPrint(view.report_);
              }),
          key("Esc", "chiudi", [](ReportView& view) { view.leave(); })};
}

void ReportView::leave() {
  if (parentWidget()) parentWidget()->close();
}

int ReportView::page() const { return sheet_->page() + 1; }
int ReportView::pages() const { return static_cast<int>(report_->pages().size()); }
void ReportView::setPage(int page) { page_->setValue(std::clamp(page, 1, pages())); }
void ReportView::turnToEnd() {
  layOutRest();
  setPage(pages());
}

QString ReportView::selectedText() const { return sheet_->markedText(); }

void ReportView::setZoom(int percent) {
  percent_ = percent <= 0 ? 0 : std::clamp(percent, 20, 400);
  int at = zoom_->findData(percent_);
  if (at < 0) {
    zoom_->addItem(QString("%1%").arg(percent_), percent_);
    at = zoom_->count() - 1;
  }
  zoom_->setCurrentIndex(at);
  applyZoom();
}

void ReportView::applyZoom() {
  const double points = paperOf(*report_).width();
  const double room = scroll_->width() - 2 * kAround - style()->pixelMetric(QStyle::PM_ScrollBarExtent) - 2;
  const double one = logicalDpiX() / 72.0;
  sheet_->setScale(percent_ > 0 ? percent_ / 100.0 * one : std::clamp(room / points, 0.4, 2.2));
}

void ReportView::zoomBy(int steps) {
  const int now =
      percent_ > 0 ? percent_ : qRound(sheet_->width() / paperOf(*report_).width() / logicalDpiX() * 7200);
  const auto* above = std::upper_bound(std::begin(kZooms), std::end(kZooms), now);
  const auto* below = std::lower_bound(std::begin(kZooms), std::end(kZooms), now);
  if (steps > 0 && above != std::end(kZooms)) setZoom(*above);
  if (steps < 0 && below != std::begin(kZooms)) setZoom(*(below - 1));
}

bool ReportView::find(const QString& words, bool forwards) {
  if (words.isEmpty()) return false;
  layOutRest();
  struct Place {
    int page;
    std::size_t line;
    qsizetype at;
  };
  std::vector<Place> places;
  for (int page = 0; page < pages(); ++page) {
    const auto lines = report_->pages()[static_cast<std::size_t>(page)].lines();
    for (std::size_t line = 0; line < lines.size(); ++line) {
      const QString whole = text(lines[line].text);
      for (qsizetype at = whole.indexOf(words, 0, Qt::CaseInsensitive); at >= 0;
           at = whole.indexOf(words, at + 1, Qt::CaseInsensitive))
        places.push_back({page, line, at});
    }
  }
  if (places.empty()) return sheet_->forget(), false;
  const int count = static_cast<int>(places.size());
  const QVariant last = property("foundAt");
  const bool same = property("foundWords").toString() == words && last.isValid();
  int next = same ? (last.toInt() + (forwards ? 1 : -1) + count) % count : 0;
  if (!same)
    while (next + 1 < count && places[static_cast<std::size_t>(next)].page < sheet_->page()) ++next;
  setProperty("foundWords", words);
  setProperty("foundAt", next);
  const Place& place = places[static_cast<std::size_t>(next)];
  setPage(place.page + 1);
  const QPoint at = sheet_->pos() + sheet_->showFound(place.line, place.at, words.size()).center().toPoint();
  scroll_->ensureVisible(at.x(), at.y(), 80, 80);
  told_->setText(QString("%1 di %2").arg(next + 1).arg(count));
  return true;
}

void ReportView::showFound(bool found) {
  if (!found) told_->setText(search_->text().isEmpty() ? QString() : QString("non trovato"));
}

void ReportView::copy() {
  if (!sheet_->hasMarks()) sheet_->markAll();
  QApplication::clipboard()->setText(sheet_->markedText());
}

void ReportView::savePdf() {
  const QString name = text(report_->title()).replace(QLatin1Char('/'), QLatin1Char('-')) + ".pdf";
  const QString path = QFileDialog::getSaveFileName(this, "Salva come PDF", name, "PDF (*.pdf)");
  if (path.isEmpty()) return;
  layOutRest();
  if (writePdf(*report_, path)) return;
  showBox({"Il file non è stato scritto: " + utf8(path), "Errore", ui::Ask::ok, ui::Icon::warning}, window());
}

// By what is in sight; beyond the end of a page to the next one.
void ReportView::turn(int by) {
  QScrollBar& bar = *scroll_->verticalScrollBar();
  const bool atEnd = by > 0 ? bar.value() >= bar.maximum() : bar.value() <= bar.minimum();
  if (!atEnd) return bar.setValue(bar.value() + by * bar.pageStep() * 9 / 10);
  if (page() + by < 1 || page() + by > pages()) return;
  setPage(page() + by);
  bar.setValue(by > 0 ? bar.minimum() : bar.maximum());
}

void ReportView::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  QScrollBar& bar = *scroll_->verticalScrollBar();
  if (event->matches(QKeySequence::Copy)) return copy();
  if (event->matches(QKeySequence::SelectAll)) return sheet_->markAll();
  if (event->matches(QKeySequence::Find)) return search_->setFocus(), search_->selectAll();
  if (event->matches(QKeySequence::Print) && onPrint) return onPrint(report_);
  switch (event->key()) {
    case Qt::Key_F3:
      return showFound(find(search_->text(), !(event->modifiers() & Qt::ShiftModifier)));
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      return turn(1);
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
      return turn(-1);
    case Qt::Key_Home:
      return setPage(1);
    case Qt::Key_End:
      return turnToEnd();
    case Qt::Key_Down:
      return bar.setValue(bar.value() + 40);
    case Qt::Key_Up:
      return bar.setValue(bar.value() - 40);
    case Qt::Key_Escape:
      return leave();
    case Qt::Key_Plus:
    case Qt::Key_Minus:
      if (control || event->modifiers() == Qt::KeypadModifier || event->modifiers() == Qt::NoModifier)
        return zoomBy(event->key() == Qt::Key_Plus ? 1 : -1);
      break;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

bool ReportView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == search_ && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
      return showFound(find(search_->text(), !(key.modifiers() & Qt::ShiftModifier))), true;
    if (key.key() == Qt::Key_Escape) return setFocus(), true;
  }
  if (watched == scroll_->viewport() && event->type() == QEvent::Wheel) {
    auto& wheel = *static_cast<QWheelEvent*>(event);
    if (wheel.modifiers() & Qt::ControlModifier) return zoomBy(wheel.angleDelta().y() > 0 ? 1 : -1), true;
    const QScrollBar& bar = *scroll_->verticalScrollBar();
    const bool down = wheel.angleDelta().y() < 0;
    if (down ? bar.value() >= bar.maximum() : bar.value() <= bar.minimum()) return turn(down ? 1 : -1), true;
  }
  return QWidget::eventFilter(watched, event);
}

void ReportView::wheelEvent(QWheelEvent* event) { event->accept(); }

void ReportView::resizeEvent(QResizeEvent*) {
  if (percent_ == 0) applyZoom();
}

}  // namespace desktop
