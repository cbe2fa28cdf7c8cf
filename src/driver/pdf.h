// Reports as PDF files, painted by the desktop's own program.
#pragma once

#include <filesystem>
#include <string>

#include "ui/report.h"

namespace driver {

// Runs `program PATH` with the report on its standard input as one JSON object: {"title", "font", "size"
// (points), "pageLines", "landscape", "margin" (points), "pages": [{"lines": [{"text", "size", "bold",
// "top"}], "pictures": [{"path", "left", "top", "width", "height"}]}]}. Returns why it failed; empty when the
// file is there.
std::string writePdf(const std::filesystem::path& program, const ui::Report& report, const std::string& path);

}  // namespace driver
