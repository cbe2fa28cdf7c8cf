#include "ui/report.h"

#include <algorithm>
#include <utility>

namespace ui {
namespace {

constexpr double kLeading = 1.14;  // of a line's height over the size of its letters
constexpr int kUsualPage = 60;

void cutBlanks(std::string& line) { line.erase(line.find_last_not_of(' ') + 1); }

}  // namespace

Report::Report(std::string_view title, Setup setup)
    : title_(title), setup_(std::move(setup)), size_(setup_.size), pages_(1) {
  if (setup_.pageLines < 1) setup_.pageLines = kUsualPage;
}

Report::~Report() = default;

void Report::line(std::string_view text) {
  if (left() == 0) newPage();
  pages_.back().lines.push_back({common::cleaned(text), size_, bold_, top_});
  top_ += size_ * kLeading;
}

void Report::lines(int blank) {
  for (int i = 0; i < blank; ++i) line();
}

void Report::picture(Picture picture) { pages_.back().pictures.push_back(std::move(picture)); }

void Report::newPage() {
  pages_.emplace_back();
  top_ = 0;
}

int Report::left() const {
  const auto taken = static_cast<int>(pages_.back().lines.size());
  return taken >= setup_.pageLines ? 0 : setup_.pageLines - taken;
}

double Report::height() const { return top_; }

std::vector<std::string> Report::textOf(const Page& page) const {
  std::vector<std::string> lines;
  lines.reserve(page.lines.size());
  for (const Line& line : page.lines) {
    lines.push_back(line.text);
    cutBlanks(lines.back());
  }
  return lines;
}

std::string Report::text() const {
  std::string text;
  for (const Page& page : pages_) {
    for (const std::string& line : textOf(page)) text.append(line) += '\n';
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
