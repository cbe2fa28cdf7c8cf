// A desk for tests: questions are answered from a queue, modal forms by functions. Whatever a test did
// not foresee throws.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ui/lookup.h"
#include "ui/report.h"
#include "ui/sheet.h"
#include "ui/user.h"

class FakeDesk : public ui::Desk {
 public:
  std::deque<ui::Answer> answers;                               // to the questions to come
  std::map<std::string, std::function<void(ui::Form&)>> modal;  // what the user does in a form
  std::deque<std::optional<std::string>> files;                 // to the choices of a file to come
  std::vector<std::string> fonts{"Courier New"};

  std::vector<std::string> boxes;  // "Errore|text", in order
  std::map<int, std::string> panels;
  std::vector<std::shared_ptr<const ui::Report>> previews, prints;
  std::vector<std::shared_ptr<const ui::Sheet>> sheets;
  int beeps = 0, nowBusy = 0, frameChanges = 0;
  bool ended = false;
  std::function<void()> whenBusy;  // once, as the busy pointer appears: what others do at that moment

  // The last box, taken off; empty when there is none.
  std::string box() {
    if (boxes.empty()) return {};
    std::string last = std::move(boxes.back());
    boxes.pop_back();
    return last;
  }

  ui::Answer show(const ui::Box& box) override {
    boxes.push_back(box.title + "|" + box.text);
    if (box.ask == ui::Ask::ok) return ui::Answer::ok;
    if (answers.empty()) throw std::logic_error("unanswered: " + boxes.back());
    const ui::Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  void run(ui::Form& form) override {
    const auto act = modal.find(form.name());
    if (act == modal.end()) throw std::logic_error("unexpected form: " + form.name());
    shown_.push_back(&form);
    if (ui::User(form).begin()) act->second(form);
    std::erase(shown_, &form);
    if (form.isOpen()) throw std::logic_error("left open: " + form.name());
  }

  void open(std::unique_ptr<ui::Form> form) override {
    owned_.push_back(std::move(form));
    shown_.push_back(owned_.back().get());
    ui::User(*owned_.back()).begin();
  }

  std::vector<ui::Form*> forms() const override {
    std::vector<ui::Form*> open;
    for (ui::Form* form : shown_)
      if (form->isOpen()) open.push_back(form);
    return open;
  }

  void bringToFront(ui::Form& form) override {
    std::erase(shown_, &form);
    shown_.push_back(&form);
  }

  void beep() override { ++beeps; }
  void status(int panel, std::string_view text) override { panels[panel] = text; }
  void busy(bool on) override {
    nowBusy += on ? 1 : -1;
    if (on && whenBusy) std::exchange(whenBusy, nullptr)();
  }
  void preview(std::shared_ptr<const ui::Report> report) override { previews.push_back(std::move(report)); }
  bool print(std::shared_ptr<const ui::Report> report) override {
    if (noPrinter) return false;
    prints.push_back(std::move(report));
    return true;
  }
  bool noPrinter = false;
  bool progress(std::size_t, std::size_t) override { return !stops; }
  bool stops = false;  // the user strikes Escape while something long is at work
  void sheet(std::shared_ptr<const ui::Sheet> sheet) override { sheets.push_back(std::move(sheet)); }

  std::optional<std::string> chooseFile(std::string_view title, std::string_view, bool,
                                        std::string_view = {}) override {
    if (files.empty()) throw std::logic_error("unexpected choice of a file: " + std::string(title));
    auto file = std::move(files.front());
    files.pop_front();
    return file;
  }

  std::vector<std::string> printerFonts() const override { return fonts; }
  void end() override { ended = true; }
  void frameChanged() override { ++frameChanges; }

  // Destroys what has closed; for the test itself, where no handler is running.
  void sweep() {
    std::erase_if(shown_, [](const ui::Form* form) { return !form->isOpen(); });
    std::erase_if(owned_, [](const auto& form) { return !form->isOpen(); });
  }

 private:
  std::vector<std::unique_ptr<ui::Form>> owned_;
  std::vector<ui::Form*> shown_;
};

// The user at a form, who calls its controls by name or caption.
class Hands {
 public:
  explicit Hands(ui::Form& form) : form_(form), user(form) {}

  template <class Kind = ui::Control>
  Kind& at(const std::string& name) {
    const ui::Found found = ui::find(form_, name);
    auto* kind = dynamic_cast<Kind*>(found.control);
    if (!kind) throw std::logic_error("no such control in " + form_.name() + ": " + name);
    if (found.onOtherPage() && !user.goToLine(*found.column, found.line))
      throw std::logic_error("the page does not turn to " + name);
    return *kind;
  }

  bool set(const std::string& name, std::string_view text) { return user.set(at<ui::Field>(name), text); }
  bool press(const std::string& name) { return user.press(at<ui::Button>(name)); }
  bool check(const std::string& name, bool on) { return user.check(at<ui::Check>(name), on); }
  bool go(const std::string& name) { return user.go(at(name)); }
  std::string text(const std::string& name) {
    const ui::Control* control = ui::find(form_, name).control;
    if (const auto* field = dynamic_cast<const ui::Field*>(control)) return field->text();
    if (const auto* label = dynamic_cast<const ui::Label*>(control)) return label->text();
    if (const auto* choice = dynamic_cast<const ui::Choice*>(control)) return choice->text();
    if (const auto* memo = dynamic_cast<const ui::Memo*>(control)) return memo->text();
    throw std::logic_error("no text in " + form_.name() + ": " + name);
  }
  std::string focus() const { return form_.focused() ? form_.focused()->name() : ""; }
  bool pick(const std::string& name, std::string_view item) {
    const ui::Found found = ui::find(form_, name);
    if (auto* choice = dynamic_cast<ui::Choice*>(found.control)) {
      const int index = found.option >= 0 ? found.option : ui::itemOf(*choice, item);
      if (index < 0) throw std::logic_error("no such item in " + name + ": " + std::string(item));
      return user.choose(*choice, index);
    }
    auto& list = at<ui::List>(name);
    const int row = ui::rowOf(list, item);
    if (row < 0) throw std::logic_error("no such row in " + name + ": " + std::string(item));
    return user.select(list, row);
  }

 private:
  ui::Form& form_;

 public:
  ui::User user;
};
