#include "ui/report.h"

#include <algorithm>
#include <utility>

namespace ui {
namespace {

constexpr double kLeading = 1.14;  // of a line's height over the size of its letters
constexpr int kUsualPage = 60;

std::string_view withoutBlanks(std::string_view line) {
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

}  // namespace

Line Page::line(std::size_t number) const {
  const auto behind = std::upper_bound(runs_.begin(), runs_.end(), number,
                                       [](std::size_t n, const Run& run) { return n < run.first; });
  const Run& run = *std::prev(behind);
  const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
  return {std::string_view(text_).substr(begin, ends_[number] - begin), run.size, run.bold,
          run.top + static_cast<double>(number - run.first) * run.size * kLeading};
}

std::vector<Line> Page::lines() const {
  std::vector<Line> lines;
  lines.reserve(size());
  for (std::size_t i = 0; i < size(); ++i) lines.push_back(line(i));
  return lines;
}

void Page::add(std::string_view text, double size, bool bold, double top) {
  if (runs_.empty() || runs_.back().size != size || runs_.back().bold != bold)
    runs_.push_back({ends_.size(), size, bold, top});
  text_ += withoutBlanks(text);
  ends_.push_back(static_cast<std::uint32_t>(text_.size()));
}

void Page::close() {
  text_.shrink_to_fit();
  ends_.shrink_to_fit();
}

Report::Report(std::string_view title, Setup setup)
    : title_(title), setup_(std::move(setup)), size_(setup_.size), pages_(1) {
  if (setup_.pageLines < 1) setup_.pageLines = kUsualPage;
}

Report::~Report() = default;

void Report::line(std::string_view text) {
  if (left() == 0) newPage();
  pages_.back().add(common::cleaned(text), size_, bold_, top_);
  top_ += size_ * kLeading;
}

void Report::lines(int blank) {
  for (int i = 0; i < blank; ++i) line();
}

void Report::picture(Picture picture) { pages_.back().pictures_.push_back(std::move(picture)); }

void Report::newPage() {
  pages_.back().close();
  pages_.emplace_back();
  top_ = 0;
}

int Report::left() const {
  const auto taken = static_cast<int>(pages_.back().size());
  return taken >= setup_.pageLines ? 0 : setup_.pageLines - taken;
}

double Report::height() const { return top_; }

bool Report::grow() const {
  if (more_ && !more_()) more_ = nullptr;
  return !isWhole();
}

void Report::finish() const {
  while (grow()) continue;
}

std::vector<std::string> Report::textOf(const Page& page) const {
  std::vector<std::string> lines;
  lines.reserve(page.size());
  for (std::size_t i = 0; i < page.size(); ++i) lines.emplace_back(page.line(i).text);
  return lines;
}

std::string Report::text() const {
  std::string text;
  for (const Page& page : pages_) {
    for (std::size_t i = 0; i < page.size(); ++i) text.append(page.line(i).text) += '\n';
    text += '\f';
  }
  return text;
}

void place(std::string& line, int at, int width, common::Align align, std::string_view text) {
  const auto wide = static_cast<std::size_t>(width), taken = common::length(line),
             chars = common::length(text);
  if (const auto before = static_cast<std::size_t>(at - 1); taken < before) line.append(before - taken, ' ');
  if (align == common::Align::left || chars <= wide) {
    line += common::fit(text, wide, align);
    return;
  }
  const auto written = line.find_last_not_of(' ') + 1;
  const auto free = line.size() - written, spare = written == 0 || free == 0 ? free : free - 1;
  const auto over = chars - wide;
  line.resize(line.size() - std::min(spare, over));
  line += text;
  if (spare < over) line += ' ';
}

}  // namespace ui
