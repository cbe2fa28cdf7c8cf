// Amounts in words, for bank receipts.
#pragma once

#include <string>

namespace common {

// "milleduecentotrentaquattro,50"; the amount is below 100 miliardi and not negative. The words are
// joined without blanks, "quattordivi" is spelled so, and zero gives ",00".
std::string AmountInWords(double amount);

}  // namespace common
