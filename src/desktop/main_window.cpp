#include "desktop/main_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "desktop/about.h"
#include "desktop/area.h"
#include "desktop/guide.h"
#include "desktop/icons.h"
#include "desktop/key_bar.h"
#include "desktop/side_bar.h"
#include "desktop/status_panels.h"
#include "desktop/theme.h"
#include "desktop/words.h"
#include "session/checks.h"

namespace desktop {
namespace {

constexpr int kStep = 30;  // between one inner window and the next
constexpr int kSteps = 8;  // after which the next one stands at the corner again

const char* const kUnitOfAbout = "primo";

QPoint stepTo(int window) { return QPoint(kStep, kStep) * (window % kSteps); }

QRect within(const QRect& wanted, const QSize& room) {
  const QSize size = wanted.size().boundedTo(room);
  return {QPoint(std::clamp(wanted.x(), 0, room.width() - size.width()),
                 std::clamp(wanted.y(), 0, room.height() - size.height())),
          size};
}

}  // namespace

MainWindow::MainWindow(QSettings& settings)
    : settings_(settings),
      area_(new Area),
      keys_(new KeyBar),
      status_(new StatusPanels),
      centre_(new QWidget) {
  setWindowTitle(text(tarvex::kProduct));
  auto* line = new QHBoxLayout(centre_);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(0);
  line->addWidget(area_, 1);
  setCentralWidget(centre_);
  setStatusBar(status_);
  setContextMenuPolicy(Qt::NoContextMenu);
  if (!restoreGeometry(settings_.value("window/geometry").toByteArray())) {
    const QRect room = screen()->availableGeometry();
    resize(std::min(1366, room.width()), std::min(768, room.height()));
    if (room.width() <= 1400) setWindowState(Qt::WindowMaximized);
  }
}

MainWindow::~MainWindow() = default;

void MainWindow::attach(tarvex::Session& session, tarvex::Frame& frame) {
  session_ = &session;
  frame_ = &frame;
  const auto pick = [this](std::string_view name) { choose(name); };
  side_ = new SideBar(pick, [this](std::string_view name) { return available(name); });
  side_->unfold(settings_.value("window/sideBar", 1).toInt());
  static_cast<QHBoxLayout*>(centre_->layout())->insertWidget(0, side_);
  buildMenus();
  buildTools();
  buildFoot();
  status_->onClick = [this] { choose("StatusBar1"); };
}

QWidget* MainWindow::front() {
  QWidget* active = QApplication::activeModalWidget();
  return active ? active : this;
}

void MainWindow::setPanel(int panel, const QString& words) { status_->setPanel(panel, words); }
void MainWindow::showProgress(std::size_t done, std::size_t all) { status_->showProgress(done, all); }

bool MainWindow::available(std::string_view name) const {
  const tarvex::MenuEntry* entry = tarvex::findMenu(name);
  if (!entry) return false;
  return entry->action != tarvex::MenuAction::open || entry->unit == kUnitOfAbout ||
         session_->knows(entry->unit);
}

void MainWindow::buildMenus() {
  for (const tarvex::MenuEntry& entry : tarvex::menuTree()) {
    QMenu* menu = menuBar()->addMenu(text(frame_->caption(entry)));
    menus_.emplace_back(menu, &entry);
    addEntries(*menu, entry.children);
  }
}

// Entries whose unit is not in the program keep their place, so that nobody learns the menus twice.
void MainWindow::addEntries(QMenu& menu, const std::vector<tarvex::MenuEntry>& entries) {
  for (const tarvex::MenuEntry& entry : entries) {
    if (!entry.children.empty()) {
      QMenu* below = menu.addMenu(text(entry.caption));
      addEntries(*below, entry.children);
      const auto actions = below->actions();
      below->menuAction()->setEnabled(std::any_of(actions.begin(), actions.end(),
                                                  [](const QAction* action) { return action->isEnabled(); }));
      continue;
    }
    QAction* action = menu.addAction(text(entry.caption));
    action->setObjectName(text(entry.name));
    action->setEnabled(available(entry.name));
    connect(action, &QAction::triggered, this, [this, name = entry.name] { choose(name); });
  }
}

void MainWindow::buildTools() {
  tools_ = addToolBar("Strumenti");
  tools_->setMovable(false);
  for (const tarvex::MenuEntry& entry : tarvex::barKeys()) {
    if (entry.name == "pn") tools_->addSeparator();
    QAction* action = tools_->addAction(icon(entry.name), text(entry.caption));
    action->setEnabled(available(entry.name));
    connect(action, &QAction::triggered, this, [this, name = entry.name] { choose(name); });
    if (auto* button = qobject_cast<QToolButton*>(tools_->widgetForAction(action)))
      button->setFocusPolicy(Qt::NoFocus);
    if (entry.name.size() <= 2 || !entry.name.starts_with("pn")) continue;
    action->setVisible(false);
    journalKeys_.push_back(action);
  }
  setToolStyle(1);
}

void MainWindow::setToolStyle(int style) {
  constexpr int kSizes[] = {16, 24, 32};
  tools_->setVisible(style > 0);
  if (style < 1) return;
  const int size = kSizes[(style - 1) % 3];
  tools_->setIconSize({size, size});
  tools_->setToolButtonStyle(style <= 3 ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon);
}

// The keys stand between the forms and the status bar, the switch of the theme at their right.
void MainWindow::buildFoot() {
  auto* bar = new QToolBar("Tasti");
  bar->setMovable(false);
  bar->setIconSize({16, 16});
  bar->setContentsMargins(0, 0, 0, 0);
  bar->layout()->setContentsMargins(0, 0, 0, 0);
  keys_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  bar->addWidget(keys_);
  auto* theme = new QToolButton;
  theme->setIcon(icon("theme"));
  theme->setToolTip("Aspetto chiaro o scuro");
  theme->setFocusPolicy(Qt::NoFocus);
  connect(theme, &QToolButton::clicked, this, [this] { setDark(!isDark()); });
  bar->addWidget(theme);
  addToolBar(Qt::BottomToolBarArea, bar);
  keys_->onHelp = [this] { showGuide(); };
  keys_->showKeysOf(nullptr);
  auto* help = new QAction(this);
  help->setShortcut(Qt::Key_F1);
  connect(help, &QAction::triggered, this, [this] { showGuide(); });
  addAction(help);
}

void MainWindow::frameChanged() {
  const tarvex::Appearance look = frame_->appearance();
  for (const auto& [menu, entry] : menus_) menu->setTitle(text(frame_->caption(*entry)));
  setToolStyle(look.toolBar);
  side_->setVisible(look.sideBar);
  side_->setPicture(text(look.sideBarPicture));
  status_->setVisible(look.statusBar);
  area_->setGround(look.colour, text(look.background));
  setWindowTitle(session_->CompanyName.empty()
                     ? text(tarvex::kProduct)
                     : text(session_->CompanyName) + " - " + text(tarvex::kProduct));
  if (!std::exchange(shown_, true)) {
    show();
    activateWindow();
  }
  if (onFrameChanged) onFrameChanged();
}

void MainWindow::setDark(bool dark) {
  settings_.setValue("window/dark", dark);
  applyTheme(*qApp, dark);
}

void MainWindow::leave() {
  leaving_ = true;
  settings_.setValue("window/geometry", saveGeometry());
  if (side_) settings_.setValue("window/sideBar", side_->unfolded());
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (leaving_ || !frame_) return event->accept();
  choose("ma2");
  event->setAccepted(leaving_);
}

void MainWindow::choose(std::string_view name) {
  if (frame_->choose(name) != tarvex::Chosen::unavailable) {
    const tarvex::MenuEntry* entry = tarvex::findMenu(name);
    if (entry) act(entry->action);
    return;
  }
  if (const tarvex::MenuEntry* entry = tarvex::findMenu(name); entry && entry->unit == kUnitOfAbout)
    showAbout();
}

// What belongs to the window alone.
void MainWindow::act(tarvex::MenuAction action) {
  switch (action) {
    case tarvex::MenuAction::cascade:
      return cascade();
    case tarvex::MenuAction::help:
      return showGuide();
    case tarvex::MenuAction::calculator:
      return startCalculator();
    case tarvex::MenuAction::journalKeys:
      for (QAction* key : journalKeys_) key->setVisible(!key->isVisible());
      return;
    default:
      return;
  }
}

void MainWindow::startCalculator() {
  for (const char* program : {"gnome-calculator", "kcalc", "mate-calc", "galculator", "xcalc"}) {
    const QString path = QStandardPaths::findExecutable(program);
    if (!path.isEmpty() && QProcess::startDetached(path, {})) return;
  }
  session_->desk().show({"Nessuna calcolatrice è installata", std::string(tarvex::kProduct), ui::Ask::ok,
                         ui::Icon::information});
}

void MainWindow::stand(QMdiSubWindow& window, QSize wanted, const QString& name) {
  const QPoint next = stepTo(static_cast<int>(area_->subWindowList().size()));
  area_->addSubWindow(&window);
  const QRect before = settings_.value("forms/" + name).toRect();
  // A form that has grown since then is shown whole all the same.
  const QSize size = before.isValid() ? wanted.expandedTo(before.size()) : wanted;
  const QPoint corner = before.isValid() ? before.topLeft() : next;
  window.setGeometry(within(QRect(corner, size), area_->viewport()->size()));
  window.show();
  area_->setActiveSubWindow(&window);
}

// One step after the other, each in its own size: a form is never cut to fit.
void MainWindow::cascade() {
  int number = 0;
  for (QMdiSubWindow* window : area_->subWindowList(QMdiArea::StackingOrder)) {
    if (!window->isVisible()) continue;
    if (window->isMaximized() || window->isMinimized()) window->showNormal();
    window->setGeometry(within(QRect(stepTo(number++), window->size()), area_->viewport()->size()));
  }
}

void MainWindow::remember(const QMdiSubWindow& window, const QString& name) {
  if (!window.isMaximized() && !window.isMinimized()) settings_.setValue("forms/" + name, window.geometry());
}

void MainWindow::showGuide() { desktop::showGuide(this); }
void MainWindow::showAbout() { desktop::showAbout(this); }

}  // namespace desktop
