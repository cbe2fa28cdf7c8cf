#include "desktop/program.h"

#include <QApplication>
#include <utility>

#include "common/text.h"
#include "desktop/splash.h"

namespace desktop {

Program::Program(ProgramOptions options)
    : settings_(options.settings, QSettings::IniFormat),
      window_(settings_),
      desk_(window_),
      session_(std::move(options.session), desk_, options.units),
      frame_(session_) {
  if (options.splash) {
    splash_ = std::make_unique<Splash>();
    splash_->show();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  window_.attach(session_, frame_);
  window_.onFrameChanged = [this] { apply(); };
}

// Forms hold on to the session: they go first.
Program::~Program() { desk_.closeAll(); }

bool Program::start() { return frame_.start(); }

void Program::apply() {
  splash_.reset();
  desk_.printsAsk = session_.param.impostastampante == 1;
  desk_.previewZoom = static_cast<int>(common::numberValue(session_.param.zoomanteprima));
}

}  // namespace desktop
