// The commands of a script for the driver, a line each.
#pragma once

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

namespace demo {

class Script {
 public:
  // A command with its words, each quoted so that blanks and accents pass.
  void say(std::string_view command, std::initializer_list<std::string_view> words = {}) {
    text_ += command;
    for (const std::string_view word : words) text_ += " " + nlohmann::json(word).dump();
    text_ += '\n';
  }
  void set(std::string_view control, std::string_view text) { say("set", {control, text}); }
  std::string text() && { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace demo
