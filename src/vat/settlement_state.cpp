#include "vat/settlement_state.h"

#include <array>
#include <utility>

#include "common/text.h"

namespace tarvex {
namespace {

using rec::si;

constexpr std::array<double si::*, 12> kSaldi = {&si::saldo1, &si::saldo2,  &si::saldo3,  &si::saldo4,
                                                 &si::saldo5, &si::saldo6,  &si::saldo7,  &si::saldo8,
                                                 &si::saldo9, &si::saldo10, &si::saldo11, &si::saldo12};
constexpr std::string_view kKey = "1";

}  // namespace

std::optional<SettlementRows> readSettlementRows(Session& session, const VatPeriod& period,
                                                 const std::string& registro, bool names) {
  const RowsAsked asked{registro, common::zeroFill(period.firstMonth(), 2),
                        common::zeroFill(period.lastMonth(), 2), names};
  auto purchases = readPurchaseRows(session, asked);
  if (!purchases) return {};
  auto sales = readSalesRows(session, asked);
  if (!sales) return {};
  auto receipts = readReceiptRows(session, asked);
  if (!receipts) return {};
  return SettlementRows{std::move(*purchases), std::move(*sales), std::move(*receipts)};
}

double& saldoOf(si& balances, int number) { return balances.*kSaldi[static_cast<std::size_t>(number - 1)]; }

double previousBalance(si balances, const VatPeriod& period) {
  if (period.length == VatPeriod::Length::year || period.number == 1) return balances.creditoprec;
  return saldoOf(balances, period.number - 1);
}

std::optional<si> readVatBalances(Session& session) {
  OpenArchive<si> archive(session, 3040, 3041);
  if (!archive->isOpen()) return {};
  const store::Code result = archive->search(0, kKey);
  if (result == store::kNotFound) return si{};
  session.CheckArchiveResult(store::Operation::read, archive->code, 3042);
  if (result != store::kOk) return {};
  return archive->B;
}

bool changeVatBalances(Session& session, const std::function<void(si&)>& change) {
  OpenArchive<si> archive(session, 3043, 3044);
  if (!archive->isOpen()) return false;
  archive->spinLock(kKey);
  const store::Code read = archive->search(0, kKey);
  if (read != store::kNotFound) session.CheckArchiveResult(store::Operation::read, archive->code, 3045);
  store::Code result = read;
  if (read == store::kOk || read == store::kNotFound) {
    archive->A = read == store::kOk ? archive->B : si{};
    change(archive->A);
    result = archive->put(kKey, store::Put::write);
    session.CheckArchiveResult(store::Operation::write, archive->code, 3046);
    const store::Code flushed = archive->flush();
    session.CheckArchiveResult(store::Operation::write, archive->code, 3047);
    if (result == store::kOk) result = flushed;
  }
  archive->unlock(kKey);
  return result == store::kOk;
}

}  // namespace tarvex
