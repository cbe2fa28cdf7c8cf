#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace desktop {

// Gives the keyboard back to the window below, and to where it was in it, when a box or a modal form closes.
class FocusBack {
 public:
  explicit FocusBack(QWidget* window) : window_(window), widget_(QApplication::focusWidget()) {}
  ~FocusBack() {
    if (window_ && window_->isVisible()) {
      window_->activateWindow();
      // Some platforms take the activity away once more when the window above is gone for good.
      QTimer::singleShot(0, window_, [window = window_.data()] {
        if (!QApplication::activeWindow() && window->isVisible()) QApplication::setActiveWindow(window);
      });
    }
    if (widget_ && widget_->isVisible()) widget_->setFocus(Qt::OtherFocusReason);
  }
  FocusBack(const FocusBack&) = delete;
  FocusBack& operator=(const FocusBack&) = delete;

 private:
  QPointer<QWidget> window_, widget_;
};

}  // namespace desktop
