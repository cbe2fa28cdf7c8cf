// What stands on the cards of the demonstration beside names and addresses.
#pragma once

#include "demo/company.h"

namespace demo {

// The agents, and the banks, conditions, notes and destinations of customers and suppliers. Draws from a
// sequence of its own, so that the documents of a seed stay what they are.
void fillCards(unsigned seed, Company& company);

}  // namespace demo
