// Captions as they are written in the forms: "&" stands before the letter that Alt presses, "&&" is
// the character itself.
#pragma once

#include <string>
#include <string_view>

namespace ui {

std::string plainCaption(std::string_view caption);  // without the marks

// As captions are compared when a control is named by its own: without marks, a trailing colon and
// outer blanks, in capitals.
std::string foldedCaption(std::string_view caption);

std::string mnemonicOf(std::string_view caption);  // the marked letter as a capital, or nothing

}  // namespace ui
