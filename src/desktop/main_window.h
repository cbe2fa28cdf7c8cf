// The window of the frame MDIForm1: menu tree, tool bar, side bar, the inner windows, keys and status bar.
// What an entry does stands in tarvex::Frame; here is what one sees.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "session/frame.h"

class QMdiSubWindow;
class QMenu;
class QSettings;

namespace desktop {

class Area;
class KeyBar;
class SideBar;
class StatusPanels;

class MainWindow : public QMainWindow {
 public:
  // `settings` remembers the placement of the windows and the theme.
  explicit MainWindow(QSettings& settings);
  ~MainWindow() override;

  // Builds menus and bars. Both must outlive the window's last event.
  void attach(tarvex::Session& session, tarvex::Frame& frame);
  std::function<void()> onFrameChanged;  // after each frameChanged()

  Area& area() const { return *area_; }
  KeyBar& keys() const { return *keys_; }
  SideBar* sideBar() const { return side_; }
  StatusPanels& status() const { return *status_; }
  QWidget* front();  // what a modal window stands over

  void setPanel(int panel, const QString& words);
  void showProgress(std::size_t done, std::size_t all);
  void frameChanged();  // titles, bars and ground as the parameters say; the first time the window is shown
  void setToolStyle(int style);  // 1 to 6; 0 shows none
  void setDark(bool dark);
  void leave();  // the program ends: the window closes without a question

  // Puts an inner window where it stood the last time, or one step below the last one, whole within the area.
  void stand(QMdiSubWindow& window, QSize wanted, const QString& name);
  void remember(const QMdiSubWindow& window, const QString& name);

  void showGuide();
  void showAbout();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildMenus();
  void addEntries(QMenu& menu, const std::vector<tarvex::MenuEntry>& entries);
  void buildTools();
  void buildFoot();
  void choose(std::string_view name);
  void act(tarvex::MenuAction action);
  void cascade();
  bool available(std::string_view name) const;
  void startCalculator();

  QSettings& settings_;
  tarvex::Session* session_ = nullptr;
  tarvex::Frame* frame_ = nullptr;
  Area* area_;
  KeyBar* keys_;
  SideBar* side_ = nullptr;
  StatusPanels* status_;
  QToolBar* tools_ = nullptr;
  QWidget* centre_;
  std::vector<QAction*> journalKeys_;
  std::vector<std::pair<QMenu*, const tarvex::MenuEntry*>> menus_;
  bool leaving_ = false;
  bool shown_ = false;
};

}  // namespace desktop
