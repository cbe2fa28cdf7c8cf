// The voices that every company's chart begins with; the system posts to several of them by their number.
#pragma once

#include <span>
#include <string_view>

#include "archives/pc.h"

namespace tarvex {

struct PredefinedAccount {
  std::string_view key, name, kind, nature, mastro, conto;  // kind, nature, mastro, conto as in rec::pc
};

std::span<const PredefinedAccount> predefinedAccounts();

// The whole record, with the fields that follow from the others: codice, chiavetipo, chiavegruppo.
rec::pc recordOf(const PredefinedAccount& account);

}  // namespace tarvex
