#include "vat/vat_table.h"

#include <algorithm>

#include "common/text.h"
#include "store/group.h"

namespace tarvex {

std::string slotKey(int slot) { return slot == 0 ? "0" : common::zeroFill(slot, 2); }

VatKind kindOf(const rec::civa& code) {
  if (code.indetraibile == kNotDeductible) return VatKind::notDeductible;
  return code.aliquota > 0 ? VatKind::normal : VatKind::exempt;
}

std::string_view nameOf(VatKind kind) {
  switch (kind) {
    case VatKind::normal:
      return "IVA NORMALE";
    case VatKind::notDeductible:
      return "IVA INDETRAIBILE";
    case VatKind::exempt:
      break;
  }
  return "ESENTE - NON SOGGETTO";
}

std::optional<VatTable> loadVatTable(Session& session) {
  VatTable table;
  for (int slot = 0; slot < kVatSlots; ++slot) {
    const store::Code result = session.civa.search(0, slotKey(slot));
    if (result == store::kNotFound) continue;
    session.CheckArchiveResult(store::Operation::read, session.civa.code, 3001);
    if (result != store::kOk) return {};
    table[slot] = session.civa.B;
  }
  return table;
}

bool saveVatTable(Session& session, const VatTable& table, const VatTable& before) {
  store::Group group(session.store, session.installationLog(), session.civa.code, 3002);
  for (int slot = 0; slot < kVatSlots; ++slot) {
    if (table[slot] == before[slot]) continue;
    session.civa.A = table[slot];
    session.civa.put(slotKey(slot), store::Put::write);
    session.CheckArchiveResult(store::Operation::write, session.civa.code, 3003);
  }
  session.civa.flush();
  return group.commit();
}

std::optional<rec::civa> readVatCode(Session& session, std::string_view code) {
  if (code.empty()) return {};  // the key of the free slots
  const store::Code result = session.civa.search(1, code);
  if (result == store::kNotFound) return {};
  session.CheckArchiveResult(store::Operation::read, session.civa.code, 3004);
  // A key longer than its index is found by its beginning.
  if (result != store::kOk || session.civa.B.codice != code) return {};
  return session.civa.B;
}

int slotOf(const VatTable& table, std::string_view code) {
  if (code.empty()) return -1;
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const auto& slot) { return slot.codice == code; });
  return found == table.end() ? -1 : static_cast<int>(found - table.begin());
}

std::optional<Duplicate> firstDuplicate(const VatTable& table) {
  for (const rec::civa& slot : table) {
    if (slot.codice.empty()) continue;
    const auto count = std::count_if(table.begin(), table.end(),
                                     [&](const auto& other) { return other.codice == slot.codice; });
    if (count > 1) return Duplicate{slot.codice, static_cast<int>(count)};
  }
  return {};
}

}  // namespace tarvex
