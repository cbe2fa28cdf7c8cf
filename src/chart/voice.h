// What every unit that makes a voice of the chart does: its number, its keys, its insertion.
#pragma once

#include <string>
#include <string_view>

#include "session/session.h"

namespace tarvex {

// The conti that are no place for a sottoconto of the user's own.
inline constexpr std::string_view kCustomersConto = "00005";
inline constexpr std::string_view kSuppliersConto = "00006";
inline constexpr std::string_view kAgentsConto = "00007";

// Fills `codice` (mastro, conto and sottoconto, "00000" for a level that there is not) and the voice's own
// number in `mastro` or `conto`; its parents stand there already.
void setCode(rec::pc& voice, std::string_view code);

// Fills `chiavetipo` and `chiavegruppo`, which every change of `ragsoc` must do. Agents form a group of their
// own, apart from suppliers and from the chart proper.
void setGroupKeys(rec::pc& voice);

// Draws the next number of a voice, five digits: locks `pr` "conto", adds 1, writes, flushes, unlocks. Empty
// when the store failed, which has been reported. Never inside a group: a number drawn stays drawn.
std::string drawVoiceNumber(Session& session);

// Adds session.pc.A under `code`, after setCode(), or, while that is taken, under the next number drawn; then
// flushes. The code that it got; empty when the store failed, which has been reported.
std::string addVoice(Session& session, std::string code);

}  // namespace tarvex
