// What a field admits, key by key, and how its text is shown.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ui {

// A line being edited. The cursor and the other end of the selection count bytes and always stand at
// the border of a character.
struct Edit {
  std::string text;
  std::size_t cursor = 0;
  std::size_t mark = 0;
};

class Mask {
 public:
  // Widths are in characters.
  static Mask text(int width);
  static Mask upper(int width);     // letters become capitals as they are typed
  static Mask password(int width);  // shown as dots
  static Mask digits(int width);
  static Mask integer(int width);                        // digits with a sign in front
  static Mask amount(int decimals = 2, int width = 18);  // width as shown at rest: "1.234,50"
  static Mask oneOf(std::string_view keys);              // a single key out of these
  static Mask pattern(std::string_view blank);           // "_" and digits take a digit: "__/__/2003"

  Mask(const Mask&);
  Mask& operator=(const Mask&);
  ~Mask();

  // One key, a whole UTF-8 character. False: it is refused and the edit stays as it was. In a pattern
  // the separator ends a group of digits ("5/" is 05/); in an amount a dot is the keypad's comma.
  bool type(Edit& edit, std::string_view key) const;

  // Backspace or Delete; false when there is nothing to erase.
  bool erase(Edit& edit, bool backwards) const;

  // Replaces everything by `text`, which may be any bytes, in time linear in its length. Dots between
  // the thousands of an amount are understood. False: part of the text was refused and left out.
  bool enter(Edit& edit, std::string_view text) const;

  // The keys that type `text` into this field: clean characters, and no dots between thousands.
  std::string keysOf(std::string_view text) const;

  std::string_view blank() const;                   // what an empty field holds
  bool isBlank(std::string_view text) const;        // nothing was entered
  std::string atRest(std::string_view text) const;  // as it stands when the field has been left
  std::string shown(std::string_view text) const;   // as it is drawn: dots for a password
  int width() const { return width_; }
  bool alignsRight() const { return kind_ == Kind::amount || kind_ == Kind::integer; }
  bool isSecret() const { return kind_ == Kind::password; }

 private:
  enum class Kind { text, upper, password, digits, integer, amount, oneOf, pattern };
  Mask(Kind kind, int width, int decimals = 0, std::string_view keys = {});
  bool typePattern(Edit& edit, char key) const;
  bool endGroup(Edit& edit, char separator) const;
  bool typeOneOf(Edit& edit, std::string_view key) const;
  bool typeAmount(Edit& edit, char key) const;
  bool takesDigit(std::size_t at) const;
  std::string wholeYear(std::string_view text) const;
  bool fits(std::string_view amount) const;
  void insert(Edit& edit, std::string_view key) const;

  Kind kind_;
  int width_;
  int decimals_;
  std::string keys_;  // of oneOf; the blank of a pattern
};

}  // namespace ui
