#include "ledger/books/book_money.h"

#include <cmath>

#include "common/amount.h"
#include "common/mask.h"

namespace tarvex {

BookMoney BookMoney::lire(const Session& session) {
  BookMoney money;
  money.rate_ = session.EuroRate > 0 ? session.EuroRate : common::kEuroRate;
  return money;
}

double BookMoney::of(double euro) const {
  return rate_ == 0 ? euro : std::round(common::snapped(euro * rate_));
}

std::string BookMoney::text(double amount) const {
  return common::format(rate_ == 0 ? "##,###,##0.00" : "##,###,###,##0", amount);
}

std::string_view BookMoney::name() const { return rate_ == 0 ? "" : "Importi in Lire"; }

}  // namespace tarvex
