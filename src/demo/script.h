// The company as a script for the driver: what a person would do, screen by screen.
#pragma once

#include <string>

#include "demo/company.h"

namespace demo {

// From an empty directory to the printed sales registers of the quarter: the company is opened, a VAT code,
// the voices and the customers are entered, the invoices registered, the three registers previewed with the
// company's heading, and the invariants verified by the last command but one.
std::string scriptOf(const Company& company);

}  // namespace demo
