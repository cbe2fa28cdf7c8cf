// A screen as its unit sees it. A unit derives from Form, declares its controls as members (the order
// is the order of entry) and sets their events in its constructor. Whoever acts for the user does it
// through User (ui/user.h); whoever draws the form is its View.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/control.h"
#include "ui/desk.h"
#include "ui/layout.h"

namespace ui {

class View {  // who draws a form
 public:
  virtual ~View();
  virtual void refresh(const Control& control) = 0;  // text, state, caption, visibility
  virtual void focusMoved() = 0;                     // also when it was taken back
  virtual void closed() = 0;
};

class Form {
 public:
  Form(Desk& desk, std::string_view name, std::string_view title);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  virtual Layout layout() const;            // unless told: one below the other
  virtual void load() {}                    // once, before it is shown; it may close the form
  virtual bool mayClose() { return true; }  // asked by the closing box
  virtual void unload() {}                  // once, when it has closed, in whatever way

  Desk& desk() const { return desk_; }
  const std::string& name() const { return name_; }
  const std::string& title() const { return title_; }
  const std::string& mode() const { return mode_; }  // tells forms of one name apart; empty: the usual one
  void setMode(std::string_view mode) { mode_ = mode; }
  const std::vector<Control*>& controls() const { return controls_; }
  Control* focused() const { return focused_; }
  bool isOpen() const { return open_; }

  // The form is closed from here on, but stays in memory until its owner destroys it, where none of
  // its handlers is running any more.
  void close();

  // Wherever the focus is; a control's own action for the key goes before.
  // `word` tells in the bar of keys what it does.
  void on(Key key, std::function<void()> action, std::string_view word = {});
  bool uses(Key key) const;                 // something is set for it
  std::string_view wordFor(Key key) const;  // empty: none was given

  // For hosts.
  void setView(View* view) { view_ = view; }
  const Layout& arranged() const;                      // layout(), asked once
  std::vector<Control*> order() const;                 // of entry: grids row by row
  Control* firstOn(const Tabs& tabs, int page) const;  // the first that can take the focus
  bool shows(const Control& control) const;            // it lies on no page of tabs that is hidden
  void showHint() const;                               // of the focused control; when it comes to front

 private:
  friend class Control;
  friend class User;
  void setFocus(Control* control);
  void bringForward(const Control& control);  // the pages of tabs on which it lies

  struct Page {
    Tabs* tabs;
    int number;
  };
  void findPages(const Layout& layout, std::vector<Page>& around) const;

  Desk& desk_;
  std::string name_, title_, mode_;
  std::vector<Control*> controls_;
  std::vector<KeyAction> keys_;
  mutable std::unique_ptr<const Layout> arranged_;
  mutable std::vector<std::pair<const Control*, Page>> onPages_;  // empty where there are no tabs
  Control* focused_ = nullptr;
  View* view_ = nullptr;
  bool loaded_ = false;
  bool open_ = true;
};

}  // namespace ui
