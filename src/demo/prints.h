// The books of the quarter, as the demonstration prints them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "demo/commands.h"
#include "demo/company.h"

namespace demo {

// The registers and the settlement of each month, the general journal, cards, a statement, the entries,
// the balance and the lists of customers and suppliers, previewed. Each is told by `report` and then written
// into `folder` as a PDF file; neither, when that is empty.
void printBooks(Script& script, const Company& company, const std::filesystem::path& folder);

// Of the file that the PDF of the print of that number, from 1, is written into.
std::string pdfName(std::size_t number);

}  // namespace demo
