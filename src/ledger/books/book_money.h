// The currency in which a book is printed: the Euro of the records, or Lire.
#pragma once

#include <string>

#include "session/session.h"

namespace tarvex {

class BookMoney {
 public:
  BookMoney() = default;
  // In Lire each amount is converted by itself, to the whole Lira; sums add what is printed.
  static BookMoney lire(const Session& session);

  double of(double euro) const;
  std::string text(double amount) const;  // "##,###,##0.00"; of Lire without decimals
  std::string_view name() const;          // "Importi in Lire"; of Euro empty
  bool operator==(const BookMoney&) const = default;

 private:
  double rate_ = 0;  // Lire for one Euro; 0: Euro
};

}  // namespace tarvex
