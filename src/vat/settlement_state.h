// What the settlements read of the archives, and the record of the balances that they keep.
#pragma once

#include <optional>

#include "archives/si.h"
#include "vat/settlement.h"

namespace tarvex {

// The VAT rows of the period, of one register or, with an empty `registro`, of all. Nothing when an archive
// cannot be read, which has been reported. With `names` the rows bear those of customers and suppliers.
std::optional<SettlementRows> readSettlementRows(Session& session, const VatPeriod& period,
                                                 const std::string& registro, bool names);

// The element of month or quarter `number`.
double& saldoOf(rec::si& balances, int number);

// What period `period` starts from: the element before it, for the first one of the year and for the whole
// year the credit of the year before.
double previousBalance(rec::si balances, const VatPeriod& period);

// The balances of the open year, all 0 when there are none. Nothing when they cannot be read, which has been
// reported.
std::optional<rec::si> readVatBalances(Session& session);

// Changes the record of the balances under its lock, from its reading to its flush. False when the store
// failed, which has been reported.
bool changeVatBalances(Session& session, const std::function<void(rec::si&)>& change);

}  // namespace tarvex
