// The table of the VAT codes: 25 slots, shared by all the companies of an installation. What was posted keeps
// the rate of its day, so that a change of the table alters nothing in the books.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "archives/civa.h"
#include "session/session.h"

namespace tarvex {

inline constexpr int kVatSlots = 25;
inline constexpr std::int16_t kNotDeductible = 100;  // of the field `indetraibile`; 0 otherwise

using VatTable = std::array<rec::civa, kVatSlots>;  // a slot with an empty `codice` is free

// The primary key of a slot, counted from 0: "0", then "01" to "24".
std::string slotKey(int slot);

// The headings under which the summaries gather the codes.
enum class VatKind { normal, notDeductible, exempt };
VatKind kindOf(const rec::civa& code);
std::string_view nameOf(VatKind kind);  // "IVA NORMALE", "IVA INDETRAIBILE", "ESENTE - NON SOGGETTO"

// All slots in turn; one that the archive lacks is free. Nothing when a slot cannot be read, which has been
// reported.
std::optional<VatTable> loadVatTable(Session& session);

// Writes the slots that differ from `before`, in turn, as one group: all or none. What another station has
// changed meanwhile in the others stays. False when nothing was written, which has been reported.
bool saveVatTable(Session& session, const VatTable& table, const VatTable& before);

// A code as the registration screens look it up. Nothing when the table has no such code; a failure is
// reported.
std::optional<rec::civa> readVatCode(Session& session, std::string_view code);

// The slot that holds `code`; -1 when none does. The empty code is in no slot.
int slotOf(const VatTable& table, std::string_view code);

// How many slots hold the first code that stands in more than one; nothing when all differ.
struct Duplicate {
  std::string code;
  int count = 0;
};
std::optional<Duplicate> firstDuplicate(const VatTable& table);

}  // namespace tarvex
