// The screen on which the cards of customers, suppliers and agents are changed, one form for all kinds.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "parties/party.h"
#include "ui/form.h"

namespace tarvex {

struct VariationKind {
  std::string_view unit;
  std::string title;
  const PartyKind& party;
};

std::unique_ptr<ui::Form> makeVariation(Session& session, const VariationKind& kind);

}  // namespace tarvex
