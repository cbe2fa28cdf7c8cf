// Lines onto the pages of a report, with a head of its own wherever a page begins. Shared by every print
// whose pages begin alike.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "ui/report.h"

namespace ui {

// `setup` upright, with letters no larger than lets lines of `width` characters stand on the sheet.
Setup fitted(Setup setup, std::size_t width);

class Paged {
 public:
  // `head` writes the lines that begin page `page`, counted from `firstPage`; `width`, in characters, is what
  // centred(), right() and rule() reckon with. The first head is written at once. The report and the head
  // outlive this.
  using Head = std::function<void(Paged& out, int page)>;
  Paged(Report& report, std::size_t width, Head head, int firstPage = 1);

  void line(std::string_view text = {});
  void bold(std::string_view text);
  void centred(std::string_view text);  // bold, as titles are
  void right(std::string_view text);
  void rule(std::size_t length = 0);  // of "-"; 0: over the whole width

  // Begins a page where so many lines would be torn apart, if a page can hold them at all.
  void keep(int lines);
  void turn();                           // begins a page
  bool atTop() const { return atTop_; }  // nothing stands below the head
  int page() const { return page_; }
  std::size_t width() const { return width_; }
  Report& report() const { return report_; }

 private:
  void begin();

  Report& report_;
  std::size_t width_;
  Head head_;
  int page_, headLines_ = 0;
  bool inHead_ = false, atTop_ = true;
};

// What stands above the title of a print: the company and its VAT number, when asked for, under lines left
// free for sheets headed beforehand.
struct Letterhead {
  int blankLines = 0;
  std::string company = {}, vatNumber = {};  // none is printed without a company
};
void writeLetterhead(Paged& out, const Letterhead& letterhead);

}  // namespace ui
