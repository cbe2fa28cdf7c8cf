// A sheet as a file of the office programs.
#pragma once

#include <string>

#include "ui/sheet.h"

namespace desktop {

// Numbers as numbers in the format "#.##0,00", everything else as text, whatever it begins with. False when
// the file cannot be written.
bool writeXlsx(const ui::Sheet& sheet, const std::string& path);

}  // namespace desktop
