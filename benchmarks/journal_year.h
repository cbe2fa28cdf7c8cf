// A company's year as the benchmarks know it: a chart of 2,000 voices, customers and sottoconti in turn, and
// a journal of entries of five lines that balance, day after day. Archives that stand in memory measure the
// program and not a disk: ./bench puts them there.
#pragma once

#include <functional>

#include "session/session.h"

namespace bench {

constexpr int kVoices = 2'000, kFirstVoice = 100;

std::string zeros(long long value, std::size_t width);

void addVoices(tarvex::Session& session);
void addJournal(tarvex::Session& session, int rows);

// Writes in groups, as whoever writes much does: the log is settled from time to time.
void inGroups(tarvex::Session& session, int count, const std::function<void(int)>& write);

}  // namespace bench
