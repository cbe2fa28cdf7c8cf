#include "ui/caption.h"

#include "common/text.h"

namespace ui {

std::string plainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

std::string foldedCaption(std::string_view caption) {
  std::string plain = common::trim(plainCaption(caption));
  if (plain.ends_with(':')) plain.pop_back();
  return common::upper(common::trim(plain));
}

std::string mnemonicOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[++i] != '&') return common::upper(common::cut(caption.substr(i), 1));
  }
  return {};
}

}  // namespace ui
