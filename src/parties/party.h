// Customers, suppliers and agents as kinds of one party: what sets them apart in the chart and on the
// screens.
#pragma once

#include <string_view>

#include "chart/account_field.h"
#include "chart/voice.h"

namespace tarvex {

struct PartyKind {
  std::string_view tipo;  // of the voice
  std::string_view noun;  // in messages and titles: "cliente"
  std::string_view mastro, conto;
  SearchList search;
  std::string_view field;  // the caption of the account field

  bool isCustomer() const { return tipo == "c"; }
};

inline constexpr PartyKind kCustomer{"c",       "cliente", "00001", kCustomersConto, SearchList::customers,
                                     "Cliente:"};
inline constexpr PartyKind kSupplier{
    "f", "fornitore", "00002", kSuppliersConto, SearchList::suppliers, "Fornitore:"};
inline constexpr PartyKind kAgent{"ag", "agente", "00002", kAgentsConto, SearchList::agents, "Agente:"};

// Whom the supplier screen made now serves.
inline const PartyKind& supplierOrAgent(const Session& session) {
  return session.AgentMode == 1 ? kAgent : kSupplier;
}

}  // namespace tarvex
