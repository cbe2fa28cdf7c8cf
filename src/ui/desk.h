// What a form asks of whoever runs it: boxes, other forms, the status bar, prints, files.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

class Control;
class Form;
class Report;
struct Sheet;

enum class Answer { ok, cancel, yes, no };
enum class Ask { ok, okCancel, yesNo, yesNoCancel };
enum class Icon { none, information, warning, critical, question };

struct Box {
  std::string text;
  std::string title;
  Ask ask = Ask::ok;
  Icon icon = Icon::none;
  bool defaultNo = false;  // of a question: its default button is no
};

std::vector<Answer> buttonsOf(Ask ask);  // in the order shown
Answer defaultOf(const Box& box);
std::string_view nameOf(Answer answer);  // "ok", "cancel", "yes", "no"
std::string_view nameOf(Icon icon);      // "none", "information", "warning", "critical", "question"

class Desk {
 public:
  virtual ~Desk();

  // Returns when the user has answered. A box closed without a button gives `cancel`, or `no` where
  // there is no such button, or `ok` where that is the only one.
  virtual Answer show(const Box& box) = 0;

  // Modal: begins the form and returns when it has closed, or at once when its load has closed it.
  virtual void run(Form& form) = 0;

  // Begins the form, which then stands in the frame beside the others. The desk owns it, and destroys
  // it once it has closed, but only where no handler of any form is running.
  virtual void open(std::unique_ptr<Form> form) = 0;

  // The visible open forms without the frame, from the bottom to the top one, modal forms included.
  virtual std::vector<Form*> forms() const = 0;
  virtual void bringToFront(Form& form) = 0;

  virtual void beep() = 0;
  virtual void status(int panel, std::string_view text) = 0;  // panels count from 1; 2 is the hint
  virtual void busy(bool on) = 0;                             // calls may nest

  // How far a long operation is, within busy(true) and busy(false); a host without a screen shows nothing.
  // False: the user has asked to stop, which an operation that can be stopped does, and another passes over.
  virtual bool progress(std::size_t done, std::size_t all);

  // A report that is not whole reads archives while it grows: the host lets go of it before the session ends.
  virtual void preview(std::shared_ptr<const Report> report) = 0;
  // False: nothing was printed, as there is no printer, or the user gave up, or the printer failed.
  virtual bool print(std::shared_ptr<const Report> report) = 0;

  // Shows the cells in a window of their own.
  virtual void sheet(std::shared_ptr<const Sheet> sheet) = 0;

  // A path to open or to save to; nothing when the user gives up. `filter` as "Archivio(*.isd)|*.isd", or
  // patterns alone; the choice begins in `directory`, where one is told.
  virtual std::optional<std::string> chooseFile(std::string_view title, std::string_view filter,
                                                bool save, std::string_view directory = {}) = 0;
  virtual std::vector<std::string> printerFonts() const = 0;

  virtual void end() = 0;           // the program ends when the running handlers have returned
  virtual void frameChanged() = 0;  // menu titles, tool bars, background: the frame's model is new

  // The boxes that every unit shows.
  void refuse(std::string text);                    // beep, "Errore", warning
  void refuse(std::string text, Control& control);  // and the focus goes to `control`
  void warn(std::string text);                      // "Attenzione", warning
  bool confirm(std::string text, std::string title = "Attenzione", bool defaultNo = false);
};

// The busy pointer for as long as it lives.
class Busy {
 public:
  explicit Busy(Desk& desk) : desk_(desk) { desk_.busy(true); }
  ~Busy() { desk_.busy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Desk& desk_;
};

}  // namespace ui
