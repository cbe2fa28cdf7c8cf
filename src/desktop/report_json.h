// Reports as tarvex-drive hands them over.
#pragma once

#include <optional>
#include <string>

#include "ui/report.h"

namespace desktop {

// One JSON object: {"title", "font", "size" (points), "pageLines", "landscape", "margin" (points), "pages":
// [{"lines":
// [{"text", "size", "bold", "top"}], "pictures": [{"path", "left", "top", "width", "height"}]}]}. Nothing for
// any other text.
std::optional<ui::Report> parseReport(const std::string& json);

}  // namespace desktop
