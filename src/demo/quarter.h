// What a company does in a quarter beside its sales: the chart that it needs, purchases on two registers,
// receipts day by day, wages and payments into the bank; what it collects and pays of January and February.
#pragma once

#include "demo/company.h"
#include "demo/draw.h"

namespace demo {

void addChart(Company& company);

// The company has its suppliers already.
void addQuarter(Draw& draw, Company& company);

}  // namespace demo
