// Between the model's UTF-8 and the toolkit's strings.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace desktop {

inline QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string utf8(const QString& text) { return text.toStdString(); }

}  // namespace desktop
