// The company as a script for the driver: what a person would do, screen by screen.
#pragma once

#include <filesystem>
#include <string>

#include "demo/company.h"

namespace demo {

// From an empty directory to the printed registers of the quarter: the company is opened, a VAT code, the
// voices, the customers and the suppliers are entered; sales and purchases with their credit notes, receipts,
// wages and payments into the bank registered; the registers previewed with the company's heading, and the
// invariants verified by the last command but one. Each register is told by `report` and then written into
// `prints` as a PDF file; neither, when that is empty.
std::string scriptOf(const Company& company, const std::filesystem::path& prints);

// Of the file that the PDF of the print of that number, from 1, is written into.
std::string pdfName(std::size_t number);

}  // namespace demo
