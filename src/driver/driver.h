// The program without a screen: reads commands, one a line, carries them out on the very same forms as the
// desktop program, and answers each with one JSON object on a line of its own.
#pragma once

#include <array>
#include <deque>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"
#include "session/frame.h"
#include "session/session.h"
#include "ui/desk.h"
#include "ui/form.h"
#include "ui/report.h"
#include "ui/sheet.h"

namespace driver {

struct DriverOptions {
  tarvex::SessionOptions session;
  std::span<const tarvex::Unit> units;
  std::filesystem::path pdfProgram = {};                    // of `pdf`; that command fails without it
  std::vector<std::string> printerFonts = {"Courier New"};  // of the printer that is not there
};

// What has been printed or previewed.
struct Printed {
  std::shared_ptr<const ui::Report> report;
  std::string_view device;  // "preview" or "printer"
};

// The records whose locks the script has taken, with the handles that hold them.
struct HeldLocks {
  store::Handle handle = 0;
  std::map<std::string, int> counts;  // by key
};

// A form run as a modal step re-enters the loop of commands: the command that opened it is answered as soon
// as the form stands, and what happens when it has closed belongs to the command that closed it.
class Driver : public ui::Desk {
 public:
  Driver(DriverOptions options, std::istream& in, std::ostream& out);
  ~Driver() override;

  // Reads up to the end of the input or of the program. 0 when every command was understood, otherwise 1.
  int run();

  // --- the desk of the forms ---
  ui::Answer show(const ui::Box& box) override;
  void run(ui::Form& form) override;
  void open(std::unique_ptr<ui::Form> form) override;
  std::vector<ui::Form*> forms() const override;
  void bringToFront(ui::Form& form) override;
  void beep() override { ++answer_.beeps; }
  void status(int panel, std::string_view text) override;
  void busy(bool) override {}
  void preview(std::shared_ptr<const ui::Report> report) override;
  bool print(std::shared_ptr<const ui::Report> report) override;
  void sheet(std::shared_ptr<const ui::Sheet> sheet) override { sheet_ = std::move(sheet); }
  std::optional<std::string> chooseFile(std::string_view title, std::string_view filter, bool save,
                                        std::string_view directory = {}) override;
  std::vector<std::string> printerFonts() const override { return options_.printerFonts; }
  void end() override { ended_ = true; }
  void frameChanged() override {}

  // --- what the commands act on ---
  const DriverOptions& options() const { return options_; }
  bool started() const { return session_ != nullptr; }
  void start();  // returns when the program has passed its start-up, SCELTA included
  void quit();   // closes the modal forms, then asks what the menu's end asks
  tarvex::Session& session() { return *session_; }
  tarvex::Frame& frame() { return *frame_; }
  ui::Form* top() const;    // null: the frame alone
  ui::Form* modal() const;  // the innermost modal form
  bool isModal(const ui::Form& form) const;
  const std::vector<Printed>& printed() const { return printed_; }
  const ui::Sheet* lastSheet() const { return sheet_.get(); }  // null: none has been filled
  std::string panel(int number) const;

  std::deque<ui::Answer> answers;                // to the questions to come
  std::deque<std::optional<std::string>> files;  // to the choices of a file to come; nothing: given up
  std::map<std::string, HeldLocks> locks;        // by stem

 private:
  friend class Call;
  struct Standing {
    ui::Form* form;
    bool modal;
  };
  struct PendingAnswer {
    std::string error;
    nlohmann::ordered_json boxes = nlohmann::ordered_json::array();
    nlohmann::ordered_json adds = nlohmann::ordered_json::object();
    int beeps = 0;
  };

  void loop(const ui::Form* modal);
  bool readLine();
  void obey(std::string_view line);
  void guarded(const std::function<void()>& operation);
  void reply();
  void leaveProgram();
  void closeModal(ui::Form& form);
  void forget(const ui::Form& form);
  void sweep();

  DriverOptions options_;
  std::istream& in_;
  std::ostream& out_;
  std::unique_ptr<tarvex::Session> session_;
  std::unique_ptr<tarvex::Frame> frame_;
  std::vector<Standing> standing_;                // from the bottom to the top
  std::vector<std::unique_ptr<ui::Form>> owned_;  // destroyed before the session
  std::map<int, std::string> panels_;
  std::vector<Printed> printed_;
  std::shared_ptr<const ui::Sheet> sheet_;

  std::string line_;
  PendingAnswer answer_;
  long serial_ = 0;  // of the command that is being answered
  bool inputEnded_ = false;
  bool leaving_ = false;  // modal forms close by themselves: the user has asked for the end
  bool ended_ = false;
  bool failed_ = false;
};

// A command at work: its words, its answer, and what it is about. After a failure the handler returns.
class Call {
 public:
  Call(Driver& driver_in, std::vector<std::string> words, std::string_view rest);

  std::size_t size() const { return words_.size(); }  // the command's own name included
  const std::string& word(std::size_t i) const { return words_[i]; }
  std::string_view rest() const { return rest_; }

  // Both are dropped when the command has been answered meanwhile, because it opened a modal form.
  void fail(std::string error);
  void add(std::string_view key, nlohmann::ordered_json value);

  ui::Form* form();                         // the top form; fails when the frame stands alone
  ui::Form* form(const std::string& name);  // an open form; fails

  Driver& driver;

 private:
  bool due() const { return serial_ == driver.serial_; }
  std::vector<std::string> words_;
  std::string_view rest_;
  long serial_;
};

}  // namespace driver
