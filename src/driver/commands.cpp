#include "driver/commands.h"

#include <algorithm>
#include <iterator>

namespace driver {
namespace {

constexpr Command kCommands[] = {
    {"start", 1, 1, command::start, "start"},
    {"open", 2, 3, command::open, "open UNIT [MODE]"},
    {"menu", 2, 2, command::menu, "menu NAME"},
    {"forms", 1, 1, command::forms, "forms"},
    {"top", 2, 2, command::top, "top FORM"},
    {"set", 3, 3, command::set, "set CONTROL \"text\""},
    {"type", 2, 2, command::type, "type \"text\""},
    {"key", 2, 2, command::key, "key NAME"},
    {"focus", 2, 2, command::focus, "focus CONTROL"},
    {"leave", 1, 1, command::leave, "leave"},
    {"press", 2, 2, command::press, "press CONTROL"},
    {"check", 3, 3, command::check, "check CONTROL on|off"},
    {"pick", 2, kAnyNumber, command::pick, "pick CONTROL \"item\" ..."},
    {"open-row", 3, 3, command::openRow, "open-row CONTROL \"item\""},
    {"cell", 5, 5, command::cell, "cell CONTROL ROW COLUMN \"text\""},
    {"spin", 3, 3, command::spin, "spin CONTROL N"},
    {"tab", 2, 2, command::tab, "tab \"caption\""},
    {"answer", 1, 2, command::answer, "answer [yes|no|ok|cancel]"},
    {"file", 1, 2, command::file, "file [\"path\"]"},
    {"state", 1, 2, command::state, "state [FORM]"},
    {"value", 2, 2, command::value, "value CONTROL"},
    {"report", 1, 2, command::report, "report [N]"},
    {"reports", 1, 1, command::reports, "reports"},
    {"pdf", 3, 3, command::pdf, "pdf N \"path\""},
    {"sheet", 1, 1, command::sheet, "sheet"},
    {"dump", 2, 3, command::dump, "dump STEM [KEY]"},
    {"put", 3, 3, command::put, "put STEM KEY {json}", true},
    {"lock", 3, 3, command::lock, "lock STEM KEY"},
    {"unlock", 3, 3, command::unlock, "unlock STEM KEY"},
    {"verify", 1, 1, command::verify, "verify"},
    {"session", 1, 1, command::session, "session"},
    {"log", 1, 1, command::log, "log"},
    {"close", 1, 1, command::close, "close"},
    {"quit", 1, 1, command::quit, "quit"},
};

}  // namespace

const Command* findCommand(std::string_view name) {
  const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                  [&](const Command& command) { return command.name == name; });
  return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace driver
