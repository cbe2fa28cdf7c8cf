#include "ui/paged.h"

#include <algorithm>
#include <utility>

#include "common/text.h"

namespace ui {

Setup fitted(Setup setup, std::size_t width) {
  constexpr double sheet = 595 - 2 * 28;  // A4 upright, within the margins of a report
  const double widest = sheet / (0.6 * static_cast<double>(std::max<std::size_t>(width, 1)));
  setup.landscape = false;
  setup.size = setup.size > 0 ? std::min(setup.size, widest) : widest;
  return setup;
}

Paged::Paged(Report& report, std::size_t width, Head head, int firstPage)
    : report_(report), width_(width), head_(std::move(head)), page_(firstPage - 1) {
  begin();
}

// The head is written through line() as well: it never begins a page within itself.
void Paged::line(std::string_view text) {
  if (!inHead_ && report_.left() == 0) turn();
  report_.line(text);
  atTop_ = inHead_;
}

void Paged::bold(std::string_view text) {
  if (!inHead_ && report_.left() == 0) turn();  // whose head has bold lines of its own
  report_.setBold(true);
  line(text);
  report_.setBold(false);
}

void Paged::centred(std::string_view text) {
  const std::size_t taken = common::length(text);
  bold(std::string(taken < width_ ? (width_ - taken) / 2 : 0, ' ').append(text));
}

void Paged::right(std::string_view text) { line(common::fit(text, width_, common::Align::right)); }

void Paged::rule(std::size_t length) { line(std::string(length == 0 ? width_ : length, '-')); }

void Paged::keep(int lines) {
  if (report_.left() < lines && headLines_ + lines <= report_.setup().pageLines) turn();
}

void Paged::turn() {
  report_.newPage();
  begin();
}

void Paged::begin() {
  const int before = report_.left();
  inHead_ = true;
  head_(*this, ++page_);
  inHead_ = false;
  headLines_ = before - report_.left();
}

void writeLetterhead(Paged& out, const Letterhead& letterhead) {
  for (int i = 0; i < letterhead.blankLines; ++i) out.line();
  if (letterhead.company.empty()) return;
  out.centred(letterhead.company);
  out.centred("P.IVA " + letterhead.vatNumber);
}

}  // namespace ui
