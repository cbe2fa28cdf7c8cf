#include "driver/driver.h"

#include <algorithm>
#include <exception>
#include <istream>
#include <ostream>

#include "common/text.h"
#include "driver/commands.h"
#include "driver/words.h"
#include "session/checks.h"
#include "ui/user.h"

namespace driver {
namespace {

using Json = nlohmann::ordered_json;

// Bytes that are no text must not keep an answer from being one.
std::string textOf(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

constexpr std::string_view kFrame = "MDIForm1";

}  // namespace

Driver::Driver(DriverOptions options, std::istream& in, std::ostream& out)
    : options_(std::move(options)), in_(in), out_(out) {}

// Forms before the session whose archives they use, the session while there is a desk that it can report to.
Driver::~Driver() {
  owned_.clear();
  if (session_)
    for (auto& [stem, held] : locks) session_->store.VmxClose(held.handle);
  frame_.reset();
  session_.reset();
}

int Driver::run() {
  loop(nullptr);
  leaveProgram();
  return failed_ ? 1 : 0;
}

// --- commands ---

void Driver::loop(const ui::Form* modal) {
  while (!ended_ && !leaving_ && (!modal || modal->isOpen())) {
    if (!readLine()) {
      inputEnded_ = leaving_ = true;
      return;
    }
    obey(line_);
    if (modal && (!modal->isOpen() || leaving_ || ended_)) return;  // its answer takes in what follows
    if (inputEnded_) return;  // in a modal form, which has closed: the answer was given when it stood
    if (!modal) sweep();
    if (leaving_) {
      leaving_ = false;
      guarded([this] { quit(); });
    }
    reply();
  }
}

bool Driver::readLine() {
  while (out_ && std::getline(in_, line_))
    if (const Words words = readWords(line_, 1); !words.words.empty() || !words.error.empty()) return true;
  return false;
}

void Driver::obey(std::string_view line) {
  answer_ = {};
  ++serial_;
  Words words = readWords(line, 1);
  const Command* command = words.words.empty() ? nullptr : findCommand(words.words.front());
  if (command) words = readWords(line, command->takesRest ? command->most : std::string_view::npos);
  Call call(*this, std::move(words.words), words.rest);
  if (!words.error.empty()) return call.fail(words.error);
  if (!command) return call.fail("no such command");
  if (call.size() < command->least || call.size() > command->most)
    return call.fail("usage: " + std::string(command->usage));
  if (started() == (command->name == "start"))
    return call.fail(started() ? "the program has started already" : "start comes first");
  guarded([&] { command->handler(call); });
}

// An operation that ends with an error ends here; the program does not.
void Driver::guarded(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const std::exception& error) {
    show({.text = error.what(), .title = std::string(tarvex::kProduct), .icon = ui::Icon::critical});
  }
}

void Driver::reply() {
  const ui::Form* form = top();
  const ui::Control* control = form ? form->focused() : nullptr;
  Json json;
  json["ok"] = answer_.error.empty();
  json["boxes"] = std::move(answer_.boxes);
  json["beeps"] = answer_.beeps;
  json["focus"]["form"] = form ? std::string_view(form->name()) : kFrame;
  json["focus"]["control"] = control ? std::string_view(control->name()) : std::string_view();
  for (auto& [key, value] : answer_.adds.items()) json[key] = std::move(value);
  if (!answer_.error.empty()) json["error"] = answer_.error;
  failed_ = failed_ || !answer_.error.empty();
  out_ << textOf(json) << '\n' << std::flush;
  answer_ = {};
}

void Driver::start() {
  session_ = std::make_unique<tarvex::Session>(options_.session, *this, options_.units);
  frame_ = std::make_unique<tarvex::Frame>(*session_);
  if (!frame_->start()) ended_ = true;
}

void Driver::quit() {
  if (modal())
    leaving_ = true;  // the outermost loop asks, when the forms have closed
  else if (frame_->end())
    ended_ = true;
}

// The input has ended without `quit`: the program still ends in its own way, whatever its questions get.
void Driver::leaveProgram() {
  sweep();
  if (ended_ || !started()) return;
  leaving_ = true;
  guarded([this] { frame_->end(); });
}

// --- forms ---

void Driver::run(ui::Form& form) {
  struct Scope {
    Driver& driver;
    ui::Form& form;
    ~Scope() { driver.forget(form); }
  } scope{*this, form};
  standing_.push_back({&form, true});
  if (!ui::User(form).begin()) return;
  if (!leaving_ && !ended_) {
    reply();
    loop(&form);
  }
  if (form.isOpen()) closeModal(form);
}

// As its closing box would; a form that will not have it is closed all the same, since the program ends.
void Driver::closeModal(ui::Form& form) {
  ui::User(form).close();
  if (form.isOpen()) form.close();
}

void Driver::open(std::unique_ptr<ui::Form> form) {
  ui::Form& opened = *form;
  owned_.push_back(std::move(form));
  standing_.push_back({&opened, false});
  try {
    ui::User(opened).begin();
  } catch (...) {  // half loaded it must not stand
    if (opened.isOpen()) opened.close();
    throw;
  }
}

void Driver::forget(const ui::Form& form) {
  std::erase_if(standing_, [&](const Standing& standing) { return standing.form == &form; });
  if (const ui::Form* now = top()) now->showHint();
}

// Destroys closed forms; only where none of their handlers is running.
void Driver::sweep() {
  const auto closed = [](const Standing& standing) { return !standing.form->isOpen(); };
  if (std::erase_if(standing_, closed) == 0) return;
  std::erase_if(owned_, [](const auto& form) { return !form->isOpen(); });
  if (const ui::Form* now = top()) now->showHint();
}

std::vector<ui::Form*> Driver::forms() const {
  std::vector<ui::Form*> open;
  for (const Standing& standing : standing_)
    if (standing.form->isOpen()) open.push_back(standing.form);
  return open;
}

ui::Form* Driver::top() const {
  const auto open = forms();
  return open.empty() ? nullptr : open.back();
}

ui::Form* Driver::modal() const {
  ui::Form* innermost = nullptr;
  for (const Standing& standing : standing_)
    if (standing.modal && standing.form->isOpen()) innermost = standing.form;
  return innermost;
}

bool Driver::isModal(const ui::Form& form) const {
  return std::any_of(standing_.begin(), standing_.end(),
                     [&](const Standing& standing) { return standing.form == &form && standing.modal; });
}

void Driver::bringToFront(ui::Form& form) {
  const auto at = std::find_if(standing_.begin(), standing_.end(),
                               [&](const Standing& standing) { return standing.form == &form; });
  if (at == standing_.end()) return;
  std::rotate(at, at + 1, standing_.end());
  form.showHint();
}

// --- boxes, prints, files ---

ui::Answer Driver::show(const ui::Box& box) {
  const auto buttons = ui::buttonsOf(box.ask);
  const auto fits = [&](ui::Answer answer) {
    return std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
  };
  const bool asks = buttons.size() > 1;
  ui::Answer answer = ui::defaultOf(box);
  bool answered = !asks;
  if (asks && !answers.empty()) {
    answered = fits(answers.front());
    if (answered) answer = answers.front();
    answers.pop_front();  // it was meant for this box, even when the box has no such button
  }
  Json json;
  json["title"] = box.title;
  json["text"] = box.text;
  json["icon"] = ui::nameOf(box.icon);
  json["buttons"] = Json::array();
  for (const ui::Answer button : buttons) json["buttons"].push_back(ui::nameOf(button));
  json["answer"] = ui::nameOf(answer);
  if (!answered) json["unanswered"] = true;
  answer_.boxes.push_back(std::move(json));
  return answer;
}

void Driver::status(int panel, std::string_view text) { panels_[panel] = text; }

std::string Driver::panel(int number) const {
  const auto found = panels_.find(number);
  return found == panels_.end() ? std::string() : found->second;
}

void Driver::preview(std::shared_ptr<const ui::Report> report) {
  report->finish();
  printed_.push_back({std::move(report), "preview"});
}

bool Driver::print(std::shared_ptr<const ui::Report> report) {
  report->finish();
  printed_.push_back({std::move(report), "printer"});
  return true;
}

std::optional<std::string> Driver::chooseFile(std::string_view, std::string_view, bool, std::string_view) {
  if (files.empty()) return std::nullopt;
  auto chosen = std::move(files.front());
  files.pop_front();
  return chosen;
}

// --- a command at work ---

Call::Call(Driver& driver_in, std::vector<std::string> words, std::string_view rest)
    : driver(driver_in), words_(std::move(words)), rest_(rest), serial_(driver_in.serial_) {}

void Call::fail(std::string error) {
  constexpr std::size_t kLongest = 200;  // a word of megabytes need not be told again
  if (error.size() > kLongest) error.resize(kLongest);
  if (due()) driver.answer_.error = common::cleaned(error);
}

void Call::add(std::string_view key, Json value) {
  if (due()) driver.answer_.adds[std::string(key)] = std::move(value);
}

ui::Form* Call::form() {
  ui::Form* form = driver.top();
  if (!form) fail("no form is open");
  return form;
}

ui::Form* Call::form(const std::string& name) {
  for (ui::Form* form : driver.forms())
    if (form->name() == name) return form;
  fail("no such form: " + name);
  return nullptr;
}

}  // namespace driver
