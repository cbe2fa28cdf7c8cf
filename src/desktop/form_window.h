// The windows that a form stands in: inside the frame beside others, or modal over it.
#pragma once

#include <QDialog>
#include <QMdiSubWindow>
#include <memory>

#include "ui/form.h"

namespace desktop {

class FormView;
class KeyBar;

// Owns its form. The cross asks the form, as Escape does.
class FormWindow : public QMdiSubWindow {
 public:
  explicit FormWindow(std::unique_ptr<ui::Form> form);
  ~FormWindow() override;

  ui::Form& form() const { return *form_; }
  FormView& view() const { return *view_; }
  QSize wanted() const;  // the size that shows the whole form

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::unique_ptr<ui::Form> form_;
  FormView* view_;
};

class ModalForm : public QDialog {
 public:
  ModalForm(ui::Form& form, QWidget* parent);
  FormView& view() const { return *view_; }
  KeyBar& keys() const { return *keys_; }
  void reject() override;  // Escape and the cross

 private:
  ui::Form& form_;
  FormView* view_;
  KeyBar* keys_;
};

}  // namespace desktop
