// The account field: a field that takes the description of a voice of the chart, completes it while it is
// typed and searches it with F5. Shared by every screen that asks for an account.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

// The search windows ricerca1 to ricerca8, one form under their names. Those of the screens that show and
// change the chart itself list mastri and conti, too, under the names of ricerca3 and ricerca5.
enum class SearchList {
  customers = 1,
  suppliers,
  sottoconti,
  customersAndSuppliers,
  postable,
  agents,
  mastri,
  conti,
  chart,
  allVoices,
};

// The search window as a modal step, opened at the text typed so far: the description chosen, empty when none
// was.
std::string searchAccount(Session& session, SearchList list, const std::string& typed);

// Kinds of voice (`tipo`) that a field takes: {"c"}, {"s", "c"}.
using Kinds = std::initializer_list<std::string_view>;

// Makes `field` an account field: hint in the status bar, completion among `kinds` when the parameter
// `completamento` is on, F5 with the window `list`, which replaces the text by what was chosen and then moves
// on. The caller sets onLeave.
void accountField(Session& session, ui::Field& field, Kinds kinds, SearchList list);

// Reads the voice with exactly that description into session.pc.B (its key in session.pc.primaryKey()); false
// when there is none. A failure is reported with `position`.
bool readVoice(Session& session, std::string_view description, int position);

// Reads the voice with that five-digit code into session.pc.B.
bool readVoiceByCode(Session& session, std::string_view code, int position);

}  // namespace tarvex
