// The company as a script for the driver: what a person would do, screen by screen.
#pragma once

#include <filesystem>
#include <string>

#include "demo/company.h"

namespace demo {

// From an empty directory to the printed registers of the quarter: the company is opened, a VAT code, the
// voices, the customers and the suppliers are entered; sales and purchases with their credit notes, receipts,
// wages and payments into the bank registered, invoices collected and paid; the books printed into `prints`
// (demo/prints.h), the company copied to a second one, and the invariants verified by the last command but
// one.
std::string scriptOf(const Company& company, const std::filesystem::path& prints);

}  // namespace demo
