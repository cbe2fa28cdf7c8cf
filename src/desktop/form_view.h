// Draws any form from its controls and its layout, and hands what the user does with keys and mouse to the
// form. One renderer for all forms: there is no drawing code per form.
//
// The form owns the focus. The view asks ui::User before the focus moves and follows what the form answers.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <unordered_map>

#include "ui/user.h"

class QKeyEvent;

namespace desktop {

class FormView : public QWidget, public ui::View {
 public:
  // Must be destroyed before the form.
  explicit FormView(ui::Form& form, QWidget* parent = nullptr);
  ~FormView() override;

  void refresh(const ui::Control& control) override;
  void focusMoved() override;
  void closed() override;
  std::function<void()> onClosed;
  std::function<void()> onFocus;  // the focus moved or what it stands on changed

  ui::Form& form() const { return form_; }
  ui::User& user() { return user_; }
  QWidget* widgetOf(const ui::Control& control) const;  // null: it is drawn by another one

  const ui::Control* controlShown(const QWidget& widget) const { return controlOf(&widget); }

  // A form behind another one moves its focus without taking the keyboard; it takes it when it comes to
  // front.
  void setInFront(bool front);

  // For whoever builds the widgets: the one that shows `control`, how it shows the control's state, and the
  // label that comes and goes with it.
  void bind(const ui::Control& control, QWidget* widget, std::function<void()> pull,
            QWidget* caption = nullptr);
  // `widget` is a part of the drawing of `control`: its keys and clicks are the control's.
  void own(QWidget* widget, const ui::Control& control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Bound {
    QPointer<QWidget> widget, caption;
    std::function<void()> pull;
  };
  ui::Control* controlOf(const QObject* widget) const;
  bool keyPressed(ui::Control* control, const QKeyEvent& event);
  bool isMnemonic(const QKeyEvent& event) const;
  bool pressed(ui::Control& control, const QObject* watched);
  void focusArrived(ui::Control& control);
  void takeKeyboard();

  ui::Form& form_;
  ui::User user_;
  std::unordered_map<const ui::Control*, Bound> bound_;
  std::unordered_map<const QObject*, const ui::Control*> owners_;
  bool inFront_ = true;
};

}  // namespace desktop
