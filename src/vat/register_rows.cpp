// Reading the rows of the registers from the VAT archives.
#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "common/date.h"
#include "common/text.h"
#include "session/scan.h"
#include "vat/register.h"

namespace tarvex {
namespace {

template <class R>
RegisterRow sharedBy(const R& from, std::string_view primaryKey) {
  RegisterRow row;
  row.posted = static_cast<long>(common::numberValue(primaryKey));
  row.datareg = from.datareg;
  row.imponibile = from.imponibile;
  row.codiva = from.codiva;
  row.aliquota = common::numberValue(from.aliquota);
  row.imposta = from.imposta;
  return row;
}

RegisterRow rowOf(const rec::iv& from, std::string_view primaryKey) {
  RegisterRow row = sharedBy(from, primaryKey);
  row.numero = from.numero;
  row.datadoc = from.datadoc;
  row.conto = from.conto;
  return row;
}

RegisterRow rowOf(const rec::ia& from, std::string_view primaryKey) {
  RegisterRow row = sharedBy(from, primaryKey);
  row.numero = from.protocollo;
  row.fornitore = from.numero;
  row.datadoc = from.datadoc;
  row.conto = from.conto;
  return row;
}

RegisterRow rowOf(const rec::ic& from, std::string_view primaryKey) {
  RegisterRow row = sharedBy(from, primaryKey);
  row.numero = from.numero;
  row.datareg = row.datadoc = common::SlashDate(common::KeyToDate(from.datareg));
  return row;
}

bool isAsked(const RowsAsked& asked, std::string_view registro, std::string_view mese) {
  if (!asked.registro.empty() && asked.registro != registro) return false;
  return mese >= asked.firstMonth && mese <= asked.lastMonth;
}

// The index is the one in which a register stands; `voicePosition` reports a name that is gone.
template <class R>
RegisterRows readRows(Session& session, const RowsAsked& asked, int index, int openPosition,
                      int closePosition, int readPosition, int voicePosition) {
  std::vector<RegisterRow> rows;
  const auto take = [&](const archives::Archive<R>& archive) {
    const R& found = archive.B;
    if (!isAsked(asked, found.registro, found.mese)) return;
    RegisterRow& row = rows.emplace_back(rowOf(found, archive.primaryKey()));
    if (!asked.names || row.conto.empty()) return;
    session.pc.search(0, row.conto);
    session.CheckArchiveResult(store::Operation::read, session.pc.code, voicePosition);
    if (session.store.LastArchiveResult == store::kOk) row.ragsoc = session.pc.B.ragsoc;
  };
  if (!scanBy<R>(session, index, openPosition, closePosition, readPosition, take)) return {};
  return rows;
}

}  // namespace

RegisterRows readSalesRows(Session& session, const RowsAsked& asked) {
  return readRows<rec::iv>(session, asked, 2, 3010, 3011, 3013, 3012);
}

RegisterRows readPurchaseRows(Session& session, const RowsAsked& asked) {
  return readRows<rec::ia>(session, asked, 2, 3030, 3031, 3033, 3032);
}

RegisterRows readReceiptRows(Session& session, const RowsAsked& asked) {
  return readRows<rec::ic>(session, asked, 3, 3034, 3035, 3037, 3036);
}

}  // namespace tarvex
