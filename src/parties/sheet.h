// The card of a customer, supplier or agent to be read: one form for all kinds.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "parties/history.h"
#include "parties/party.h"
#include "ui/form.h"

namespace tarvex {

enum class SheetPage { anagrafica, condizioni, contabilita };  // those of lines alone

// A value of the record on its page.
struct SheetLine {
  SheetPage page;
  bool sameRow;  // beside the one before it
  std::string_view name, caption;
  int width;
  std::string (*text)(const rec::pc& party);
};

struct DueLists {
  std::vector<DueDate> first, second;
};

struct SheetKind {
  std::string_view unit, title;
  const PartyKind& party;
  std::span<const SheetLine> lines;
  std::span<const DocumentColumn> documents;  // empty: no such page
  std::string_view firstList, secondList;     // their captions
  DueLists (*dueLists)(Session& session, const std::string& code);
  bool dueListsOnDemand = false;  // by "&Carica dati"
};

std::unique_ptr<ui::Form> makeSheet(Session& session, const SheetKind& kind);

}  // namespace tarvex
