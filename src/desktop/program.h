// The desktop program: one session in one window.
#pragma once

#include <QSettings>
#include <QString>
#include <memory>

#include "desktop/main_window.h"
#include "desktop/window_desk.h"
#include "session/frame.h"
#include "session/session.h"

namespace desktop {

class Splash;

struct ProgramOptions {
  tarvex::SessionOptions session;
  std::span<const tarvex::Unit> units;
  QString settings;  // the file that remembers placement and theme
  bool splash = true;
};

class Program {
 public:
  explicit Program(ProgramOptions options);
  ~Program();

  // Shows the frame and lets the user choose the company; returns when one is open. False: the program ends.
  bool start();

  MainWindow& window() { return window_; }
  WindowDesk& desk() { return desk_; }
  tarvex::Session& session() { return session_; }
  tarvex::Frame& frame() { return frame_; }

 private:
  void apply();

  QSettings settings_;
  MainWindow window_;
  WindowDesk desk_;
  tarvex::Session session_;
  tarvex::Frame frame_;
  std::unique_ptr<Splash> splash_;
};

}  // namespace desktop
