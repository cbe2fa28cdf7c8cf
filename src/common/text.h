// Text as the screens and the prints count it: UTF-8, by characters and never by bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace common {

enum class Align { left, right };

// Number of characters (code points) of valid UTF-8.
std::size_t length(std::string_view text);

// The first `width` characters; the whole text when it is shorter.
std::string cut(std::string_view text, std::size_t width);

// The last `width` characters; the whole text when it is shorter.
std::string right(std::string_view text, std::size_t width);

// Exactly `width` characters: cut or padded with blanks, the text at the left or at the right.
std::string fit(std::string_view text, std::size_t width, Align align = Align::left);

// At the right of `width` characters; a longer text stays whole, since a figure cut short is a wrong one.
std::string figure(std::string_view text, std::size_t width);

// `text` with zeros in front up to `width` characters; a longer text stays as it is.
std::string zeroFill(std::string_view text, std::size_t width);
std::string zeroFill(long long number, std::size_t width);

// Without the blanks at both ends.
std::string trim(std::string_view text);

// Upper and lower case, the accented letters of Latin-1 included; every other byte stays as it is.
std::string upper(std::string_view text);
std::string lower(std::string_view text);

bool isUtf8(std::string_view text);

// Valid UTF-8 without control characters: each byte that belongs to no character becomes U+FFFD,
// each control character a blank. With `keepLines` the line feed and the tab stay.
std::string cleaned(std::string_view text, bool keepLines = false);

// A number as stored data and the failure boxes hold it: plain decimal digits with a point, and one
// blank in front of a number that is not negative (" 22", "-3", " 10.5").
std::string numberText(double number);

// The value at the start of a text that begins with a number, leading blanks passed over; 0 for any other.
double numberValue(std::string_view text);

}  // namespace common
