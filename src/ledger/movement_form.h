// The screen of free entries, one form for the generic movement, its revision, its form in Lire and the
// entries that begin from a scheme.
#pragma once

#include <memory>
#include <string_view>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

struct MovementKind {
  std::string_view unit, title;
  int rows = 20, pages = 5;  // of the screen
  bool revision = false;     // opened on an entry, which it replaces
  bool lire = false;         // amounts are typed in Lire and posted in Euro
  bool automated = false;    // its rows come from a scheme
};

// `kind` must outlive the form.
std::unique_ptr<ui::Form> makeMovementForm(Session& session, const MovementKind& kind);

}  // namespace tarvex
