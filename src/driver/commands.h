// The commands: one table of name, number of words and handler. The handlers stand by theme in
// frame_commands.cpp, control_commands.cpp, result_commands.cpp and archive_commands.cpp.
#pragma once

#include <cstddef>
#include <string_view>

namespace driver {

class Call;

struct Command {
  std::string_view name;
  std::size_t least, most;  // words, the name included
  void (*handler)(Call&);
  std::string_view usage;
  bool takesRest = false;  // what stands behind the last word is one argument more, as it is
};

const Command* findCommand(std::string_view name);  // null: there is none

inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

namespace command {

// The program, its frame and its forms.
void start(Call&);
void open(Call&);
void menu(Call&);
void forms(Call&);
void top(Call&);
void close(Call&);
void quit(Call&);
void answer(Call&);
void file(Call&);
void session(Call&);
void log(Call&);

// The controls of the top form.
void set(Call&);
void type(Call&);
void key(Call&);
void focus(Call&);
void leave(Call&);
void press(Call&);
void check(Call&);
void pick(Call&);
void openRow(Call&);
void cell(Call&);
void spin(Call&);
void tab(Call&);

// What is on the screen and what came out of the printer.
void state(Call&);
void value(Call&);
void report(Call&);
void reports(Call&);
void pdf(Call&);
void sheet(Call&);

// The records.
void dump(Call&);
void put(Call&);
void lock(Call&);
void unlock(Call&);
void verify(Call&);

}  // namespace command
}  // namespace driver
