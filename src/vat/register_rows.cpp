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

// The index of an archive in which its register stands comes first; `voicePosition` reports a name that is
// gone.
template <class R>
RegisterRows readRows(Session& session, std::string_view registro, std::string_view mese, int index,
                      int openPosition, int closePosition, int readPosition, int voicePosition) {
  std::vector<RegisterRow> rows;
  const bool read = scanBy<R>(
      session, index, openPosition, closePosition, readPosition, [&](const archives::Archive<R>& archive) {
        const R& found = archive.B;
        if (found.registro != registro || found.mese != mese) return;
        RegisterRow& row = rows.emplace_back(rowOf(found, archive.primaryKey()));
        if (row.conto.empty()) return;
        session.pc.search(0, row.conto);
        session.CheckArchiveResult(store::Operation::read, session.pc.code, voicePosition);
        if (session.store.LastArchiveResult == store::kOk) row.ragsoc = session.pc.B.ragsoc;
      });
  if (!read) return {};
  return rows;
}

}  // namespace

RegisterRows readSalesRows(Session& session, std::string_view registro, std::string_view mese) {
  return readRows<rec::iv>(session, registro, mese, 2, 3010, 3011, 3013, 3012);
}

RegisterRows readPurchaseRows(Session& session, std::string_view registro, std::string_view mese) {
  return readRows<rec::ia>(session, registro, mese, 2, 3030, 3031, 3033, 3032);
}

RegisterRows readReceiptRows(Session& session, std::string_view registro, std::string_view mese) {
  return readRows<rec::ic>(session, registro, mese, 3, 3034, 3035, 3037, 3036);
}

}  // namespace tarvex
