// The bytes of a group log: its slots, its note and its records. Values in, bytes out and back; no file here.
// All numbers are little endian; each piece begins with a magic number of its own and a crc of what follows
// it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/group_log.h"

namespace store {

struct LogSlot {           // how far the log reaches
  LogMark mark;            // the log, and the seq of this slot
  std::uint64_t last = 0;  // offset of the last record; the tail where there is none
  std::uint64_t tail = 0;  // offset behind the last record
};

inline constexpr std::size_t kLogBlock = 4096;
inline constexpr std::size_t kLogSlots[] = {0, kLogBlock};
inline constexpr std::size_t kLogNote = 2 * kLogBlock;     // how far the records have been applied: a LogMark
inline constexpr std::size_t kLogRecords = 3 * kLogBlock;  // offset of the first record
inline constexpr std::size_t kLogSlotSize = 40;
inline constexpr std::size_t kLogNoteSize = 24;
inline constexpr std::size_t kLogRecordHead = 32;

std::string encodeLogSlot(const LogSlot& slot);
std::string encodeLogNote(const LogMark& applied);
std::string encodeLogRecord(const LogMark& mark, const std::vector<LogEntry>& entries);

// False for bytes that no encode... has made, whatever they are.
bool decodeLogSlot(std::string_view bytes, LogSlot& slot);
bool decodeLogNote(std::string_view bytes, LogMark& applied);

// The head of a record, not yet proved: its mark and the bytes of the whole record, as they claim to be.
bool decodeLogRecordHead(std::string_view bytes, LogMark& mark, std::uint64_t& size);
// A whole record, head and all.
bool decodeLogRecord(std::string_view bytes, LogRecord& record);

}  // namespace store
